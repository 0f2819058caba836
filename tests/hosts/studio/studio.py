"""The Studio in a person's hands: its windows, pictures and gestures."""

import os
import re
import subprocess
import sys
from pathlib import Path

import gi

gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf  # noqa: E402

import desktop  # noqa: E402
from desktop import run, wait_until  # noqa: E402

STUDIO = os.environ["ORVANE_STUDIO"]
CHANGED = "• "
# What the toolkit's file chooser says of its own buttons when the machine is slow.
CHOOSER_IN_HASTE = "Trying to snapshot GtkButton .* without a current allocation"


def orvane(*steps):
    """Runs the command line program, which says what a picture should be."""
    subprocess.run([os.environ["ORVANE_PROGRAM"], *map(str, steps)], check=True, stdout=subprocess.DEVNULL)


def pixels(path):
    """Size and colours of a picture file."""
    picture = GdkPixbuf.Pixbuf.new_from_file(str(path)).add_alpha(False, 0, 0, 0)
    return picture.get_width(), picture.get_height(), picture.read_pixel_bytes().get_data()


def difference(one, other):
    """How many pixels differ; pictures of different sizes differ everywhere."""
    (width, height, a), (other_width, other_height, b) = one, other
    if (width, height) != (other_width, other_height):
        return width * height
    return sum(a[i : i + 4] != b[i : i + 4] for i in range(0, len(a), 4))


def new_picture(path, width=400, height=300):
    """A picture file with something to see and no two places alike."""
    orvane("BitmapBackColor=0x1060c0", "NewImage", width, height, "Noise", 1, 25, "Blur", 1, "-o", path)
    return path


class Studio:
    """One running Studio."""

    def __init__(self, *files):
        self.program = desktop.Program(STUDIO, *map(str, files))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.program.stop()

    def window(self, title):
        window = self.program.window(title)
        window.focus()
        return window

    def assert_silent(self):
        """Whatever was done, the toolkit had nothing to complain about."""
        complaints = [
            line
            for line in self.program.complaints().splitlines()
            if re.search("WARNING|CRITICAL|ERROR", line) and not re.search(CHOOSER_IN_HASTE, line)
        ]
        assert not complaints, complaints


def title_of(window):
    return window.frame.get_name()


def wait_changed(window, changed=True):
    wait_until(lambda: title_of(window).startswith(CHANGED) == changed, f"changed = {changed} in {title_of(window)!r}")


def position(window):
    """Column and row of the picture's pixel under the pointer, as the status bar has it; None beside the picture."""
    found = [re.fullmatch(r"(\d+), (\d+)", text) for text in window.texts()]
    return next(((int(match[1]), int(match[2])) for match in found if match), None)


class Canvas:
    """The picture in a window, in the screen's coordinates from its middle."""

    def __init__(self, window):
        x, y, width, height = window.area(window.find("image", "Picture"))
        self.middle = (x + width // 2, y + height // 2)
        self.left, self.bottom = -(width // 2), height // 2

    def at(self, point):
        return str(self.middle[0] + point[0]), str(self.middle[1] + point[1])

    def move(self, point):
        run("xdotool", "mousemove", *self.at(point))

    def click(self, point, button=1):
        run("xdotool", "mousemove", *self.at(point), "sleep", "0.03", "click", str(button), "sleep", "0.03")

    def drag(self, *points, hold=0.0):
        steps = ["mousemove", *self.at(points[0]), "sleep", "0.03", "mousedown", "1", "sleep", str(0.03 + hold)]
        for point in points[1:]:
            steps += ["mousemove", *self.at(point), "sleep", "0.03"]
        run("xdotool", *steps, "mouseup", "1", "sleep", "0.03")


def temporary(name):
    """A path in the test's folder, where no earlier run has left anything."""
    path = Path(os.environ["ORVANE_TEST_FOLDER"]) / name
    path.unlink(missing_ok=True)
    return path


def run_tests(*tests):
    """Runs those that the command line names, or all, and tells which."""
    for test in tests:
        if not sys.argv[1:] or test.__name__ in sys.argv[1:]:
            print(test.__name__, flush=True)
            test()
