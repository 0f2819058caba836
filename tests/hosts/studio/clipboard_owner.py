"""Puts a picture file on the clipboard, says so, and serves it: a program that the test can stop and continue."""

import sys

import gi

gi.require_version("Gtk", "4.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402

Gtk.init()
with open(sys.argv[1], "rb") as file:
    contents = Gdk.ContentProvider.new_for_bytes("image/png", GLib.Bytes.new(file.read()))
Gdk.Display.get_default().get_clipboard().set_content(contents)
print("offered", flush=True)
GLib.MainLoop().run()
