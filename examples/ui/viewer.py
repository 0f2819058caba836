#!/usr/bin/env python3
"""Draws frames into a picture. The window is described in viewer.ui.

    viewer.py PICTURE
"""

import sys
from pathlib import Path

import gi

gi.require_version("Gtk", "4.0")
gi.require_version("Orvane", "1.0")
from gi.repository import GObject, Gtk, Orvane

RECTANGLE = 11  # a value of paint-status


class Viewer:
    """Has the functions that viewer.ui names as handlers."""

    def __init__(self, application):
        # GtkBuilder finds a type by its name once the type is registered.
        GObject.type_ensure(Orvane.Vistrel.__gtype__)
        builder = Gtk.Builder(self)
        builder.add_from_file(str(Path(__file__).with_name("viewer.ui")))
        self.picture = builder.get_object("picture")
        window = builder.get_object("window")
        window.set_application(application)
        window.present()

    def open(self, path):
        if not self.picture.load_image(path):
            sys.exit(f"{path} is not a picture")
        self.picture.props.paint_status = RECTANGLE

    def on_draw(self, _button):
        self.picture.accept()  # what was dragged becomes part of the picture

    def on_undo(self, _button):
        self.picture.undo()


def activate(application):
    application.viewer = Viewer(application)
    application.viewer.open(sys.argv[1])


if len(sys.argv) != 2:
    sys.exit(__doc__)
application = Gtk.Application(application_id="io.github.orvane.example.Frames")
application.connect("activate", activate)
sys.exit(application.run())
