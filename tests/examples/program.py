"""What the tests of the examples share: programs that are used with keys and mouse, and pictures to compare."""

import os
import subprocess
import sys
import time
from pathlib import Path

import gi

gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf

EXAMPLES = Path(os.environ["ORVANE_EXAMPLES"])
PATIENCE = 20  # seconds; a busy machine may need many


def orvane(*steps):
    """Runs the command line program, which says what a picture should be."""
    subprocess.run([os.environ["ORVANE_PROGRAM"], *map(str, steps)], check=True, stdout=subprocess.DEVNULL)


def wait_for(condition, what):
    """Waits until condition() is true, and answers with its value."""
    end = time.monotonic() + PATIENCE
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.05)
    return value


class Picture:
    """Red, green and blue of a picture file."""

    def __init__(self, path):
        pixbuf = GdkPixbuf.Pixbuf.new_from_file(str(path))
        self.width, self.height = pixbuf.get_width(), pixbuf.get_height()
        channels, stride, data = pixbuf.get_n_channels(), pixbuf.get_rowstride(), pixbuf.get_pixels()
        self.rows = []
        for y in range(self.height):
            row = data[y * stride:y * stride + self.width * channels]
            self.rows.append([tuple(row[x:x + 3]) for x in range(0, len(row), channels)])

    def __eq__(self, other):
        return self.rows == other.rows

    def box_of(self, color):
        """Left, top, width and height of all that has this colour; None when nothing has."""
        columns = [x for row in self.rows for x, pixel in enumerate(row) if pixel == color]
        lines = [y for y, row in enumerate(self.rows) if color in row]
        if not lines:
            return None
        return min(columns), lines[0], max(columns) - min(columns) + 1, lines[-1] - lines[0] + 1

    def part(self, left, top, width, height):
        """The pixels of an area, as rows."""
        return [row[left:left + width] for row in self.rows[top:top + height]]


class Program:
    """A program with one window. Used with "with"; the end closes the window and wants status 0."""

    def __init__(self, folder, *command):
        self.folder = Path(folder)
        self.process = subprocess.Popen([str(word) for word in command])
        self.window = wait_for(self._find_window, "the window")
        wait_for(lambda: self._active() == self.window, "the keyboard")

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program ended with {self.process.returncode} before its window came")
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)],
                               capture_output=True, text=True).stdout.split()
        return found[0] if found else None

    @staticmethod
    def _active():
        return subprocess.run(["xdotool", "getactivewindow"], capture_output=True, text=True).stdout.strip()

    def __enter__(self):
        return self

    def __exit__(self, kind, _value, _traceback):
        if kind is None:
            self.key("alt+F4")
            try:
                status = self.process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                self._kill()
                raise AssertionError("closing the window does not end the program") from None
            if status != 0:
                raise AssertionError(f"the program ended with {status}")
        elif self.process.poll() is None:
            self._kill()
        else:
            print(f"the program has ended with {self.process.returncode}", file=sys.stderr)

    def _kill(self):
        self.process.kill()
        self.process.wait()

    @staticmethod
    def _tool(*words):
        return subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, text=True).stdout

    def title(self):
        return self._tool("getwindowname", self.window).strip()

    def key(self, *keys):
        self._tool("key", "--window", 0, *keys)

    def move(self, x, y):
        self._tool("mousemove", x, y)

    def click(self, x, y):
        self._tool("mousemove", x, y, "click", 1)

    def drag(self, *positions):
        """Presses at the first position, moves to the others, and releases."""
        (x, y), *rest = positions
        self._tool("mousemove", x, y, "mousedown", 1)
        for x, y in rest:
            self._tool("mousemove", x, y)
        self._tool("mouseup", 1)

    def screen(self):
        shot = self.folder / "screen.png"
        subprocess.run(["import", "-silent", "-window", "root", str(shot)], check=True)
        return Picture(shot)

    def find_color(self, color, size):
        """Where an area of this colour and size stands on the screen: its left and top."""
        def box():
            found = self.screen().box_of(color)
            return found if found and found[2:] == size else None
        return wait_for(box, f"{size[0]} x {size[1]} pixels of {color}")[:2]

    def expect(self, left, top, picture):
        """Waits until the screen shows exactly this picture at a position."""
        wait_for(lambda: self.screen().part(left, top, picture.width, picture.height) == picture.rows,
                 "the picture that was expected; the last screen is screen.png")
