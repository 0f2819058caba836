"""A small window from which files can be dragged, as from a file manager."""

import sys

import gi

gi.require_version("Gtk", "4.0")
from gi.repository import Gdk, Gio, GLib, Gtk  # noqa: E402


def activate(application):
    label = Gtk.Label(label="Drag me")
    files = Gdk.FileList.new_from_list([Gio.File.new_for_path(path) for path in sys.argv[1:]])
    source = Gtk.DragSource()
    source.connect("prepare", lambda *_: Gdk.ContentProvider.new_for_value(files))
    label.add_controller(source)
    Gtk.ApplicationWindow(
        application=application, title="Drag source", default_width=120, default_height=60, child=label
    ).present()


application = Gtk.Application(application_id="io.github.orvane.DragSource", flags=Gio.ApplicationFlags.NON_UNIQUE)
application.connect("activate", activate)
GLib.timeout_add_seconds(60, application.quit)
application.run()
