#!/usr/bin/env python3
"""A window with a picture and a slider that makes it warmer or cooler while it moves.

    slider.py PICTURE
"""

import sys

import gi

gi.require_version("Gtk", "4.0")
gi.require_version("Orvane", "1.0")
from gi.repository import Gtk, Orvane


class Window(Gtk.ApplicationWindow):
    def __init__(self, application, path):
        super().__init__(application=application, title="Temperature", default_width=640, default_height=520)
        self.picture = Orvane.Vistrel(hexpand=True, vexpand=True)
        self.changed = False  # whether the slider's filter is the last change of the picture

        slider = Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, -100, 100, 1)
        slider.set_value(0)
        slider.add_mark(0, Gtk.PositionType.TOP, None)
        slider.connect("value-changed", self.on_value_changed)

        box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
        box.append(self.picture)
        box.append(slider)
        self.set_child(box)
        if not self.picture.load_image(path):
            self.set_title(f"{path} is not a picture")
            slider.set_sensitive(False)
        slider.grab_focus()

    def on_value_changed(self, slider):
        # Each value starts from the picture as it was, so the previous one is taken back first. Between begin_update
        # and end_update nothing is drawn: the eye sees only the result.
        value = int(slider.get_value())
        self.picture.begin_update()
        if self.changed:
            self.picture.undo()
        self.picture.temperature(value)
        self.changed = True
        self.picture.end_update()


def activate(application):
    Window(application, sys.argv[1]).present()


if len(sys.argv) != 2:
    sys.exit(__doc__)
application = Gtk.Application(application_id="io.github.orvane.example.Slider")
application.connect("activate", activate)
sys.exit(application.run())
