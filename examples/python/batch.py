#!/usr/bin/env python3
"""Applies one filter to many pictures and saves the results as PNG files.

    batch.py OUTDIR FILTER [NUMBER...] -- PICTURE...

    batch.py out sepia -- *.jpg
    batch.py out gaussian_blur 5 2 -- holiday/*.jpg

A filter is a method of the control in Python's spelling; docs/filters.md shows them all. The control is a widget and
wants a display, even though nothing is shown. On a machine without one:

    xvfb-run python3 batch.py out sepia -- *.jpg
"""

import sys
from pathlib import Path

import gi

gi.require_version("Gdk", "4.0")
gi.require_version("Orvane", "1.0")
from gi.repository import Gdk, Orvane

PNG = 4  # save_image counts: 0 BMP, 1 JPEG, 2 GIF, 3 TIFF, 4 PNG


def number(text):
    return float(text) if "." in text else int(text)


def main(arguments):
    if "--" not in arguments or arguments.index("--") < 2:
        print(__doc__, file=sys.stderr)
        return 2
    end = arguments.index("--")
    folder, name, numbers = Path(arguments[0]), arguments[1], [number(text) for text in arguments[2:end]]
    if Gdk.Display.get_default() is None:
        print("There is no display. Please run this program under xvfb-run.", file=sys.stderr)
        return 2
    if not hasattr(Orvane.Vistrel, name):
        print(f"There is no filter {name}.", file=sys.stderr)
        return 2

    folder.mkdir(parents=True, exist_ok=True)
    picture = Orvane.Vistrel()  # one control serves for all, one picture after the other
    apply = getattr(picture, name)
    failures = 0
    for source in map(Path, arguments[end + 1:]):
        result = folder / (source.stem + ".png")
        # No member of the control fails with an exception: the two that may fail say so by False.
        if picture.load_image(str(source)):
            apply(*numbers)
            if picture.save_image(str(result), PNG):
                print(f"{source} -> {result}")
                continue
        print(f"{source}: no picture, or {result} cannot be written", file=sys.stderr)
        failures += 1
    return 1 if failures else 0


sys.exit(main(sys.argv[1:]))
