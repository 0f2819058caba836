"""A person at the desktop: finds what a screen reader would announce, and uses pointer and keyboard.

Widgets are known by accessible role and name, so whatever a test can use, a person with a screen reader can too.
Needs a display with a window manager and a session bus (tests/support/with_display --manager --accessible).
"""

import os
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

WIDEST_BORDER = 16
PATIENCE = float(os.environ.get("ORVANE_TEST_PATIENCE", "15"))


class NotFound(AssertionError):
    """Something did not show up in time."""


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def wait_until(condition, what, patience=PATIENCE):
    """The condition's first true answer."""
    deadline = time.monotonic() + patience
    while True:
        try:
            answer = condition()
        except GLib.Error:  # the widget went away between two questions
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            screenshot(os.path.join(os.environ.get("ORVANE_TEST_FOLDER", "."), "in-vain.png"))
            raise NotFound(f"waited {patience:g} s in vain for {what}")
        time.sleep(0.03)


def press_keys(*keys):
    """Key combinations as xdotool names them: "ctrl+z", "Return"."""
    for key in keys:
        run("xdotool", "key", "--clearmodifiers", key)
        time.sleep(0.05)


def type_text(text):
    run("xdotool", "type", "--delay", "15", text)


def descendants(node):
    """The visible widgets below a node, from the top."""
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is None:
            continue
        yield child
        yield from descendants(child)


def is_visible(node):
    return node.get_state_set().contains(Atspi.StateType.VISIBLE)


def is_sensitive(node):
    return node.get_state_set().contains(Atspi.StateType.SENSITIVE)


class Window:
    """One window of a program: where it is on the screen, and what is in it."""

    def __init__(self, frame, identifier):
        self.frame = frame
        self.identifier = identifier

    def origin(self):
        """The screen position of the window's contents, inside the shadow that the program draws itself."""
        text = run("xwininfo", "-id", self.identifier)
        left, top, width = (
            int(re.search(rf"{what}:\s+(-?\d+)", text)[1]) for what in ("left X", "left Y", "Width")
        )
        # Around its contents a window may have a shadow, or a border to drag it by, as wide on all sides.
        shadow = re.search(r"= (\d+), \d+, (\d+)", run("xprop", "-id", self.identifier, "_GTK_FRAME_EXTENTS"))
        if shadow:
            return left + int(shadow[1]), top + int(shadow[2])
        border = (width - self.frame.get_extents(Atspi.CoordType.WINDOW).width) // 2
        border = border if 0 < border <= WIDEST_BORDER else 0  # what has no title may have been found as another window
        return left + border, top + border

    def all(self, role, name=None):
        return [
            node
            for node in descendants(self.frame)
            if node.get_role_name() == role and (name is None or node.get_name() == name) and is_visible(node)
        ]

    def find(self, role, name=None, patience=PATIENCE):
        def found():
            matches = self.all(role, name)
            return matches[0] if matches else None

        return wait_until(found, f"{role} {name!r} in {self.frame.get_name()!r}", patience)

    def texts(self):
        """Everything that can be read in the window."""
        return [node.get_name() for node in descendants(self.frame) if node.get_name() and is_visible(node)]

    def area(self, node):
        """Where a widget is on the screen: x, y, width, height."""
        x, y = self.origin()
        box = node.get_extents(Atspi.CoordType.WINDOW)
        return x + box.x, y + box.y, box.width, box.height

    def click(self, role, name=None):
        node = self.find(role, name)
        x, y, width, height = self.area(node)
        run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "1")
        time.sleep(0.1)

    def focus(self):
        run("xdotool", "windowactivate", "--sync", self.identifier)


class Program:
    """A program that is running, with its windows."""

    def __init__(self, *command):
        self.log = open(f"{os.environ['XDG_CACHE_HOME']}/program-{time.monotonic_ns()}.log", "w+", encoding="utf-8")
        self.process = subprocess.Popen(command, stdout=self.log, stderr=self.log)

    def accessible(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(i)
            if program is not None and program.get_process_id() == self.process.pid:
                program.set_cache_mask(Atspi.Cache.NONE)  # what is asked for is what shows now
                return program
        return None

    def windows(self):
        """Its windows, the one that was opened last at the end."""
        program = self.accessible()
        frames = [program.get_child_at_index(i) for i in range(program.get_child_count())] if program else []
        return [frame for frame in frames if frame is not None and is_visible(frame)]

    def window(self, title, patience=PATIENCE):
        """The window whose title matches the regular expression."""

        def shown():
            for frame in self.windows():
                if re.search(title, frame.get_name() or ""):
                    return self.on_screen(frame)
            return None

        return wait_until(shown, f"a window titled {title!r}", patience)

    def on_screen(self, frame):
        pattern = "^" + re.escape(frame.get_name()) + "$"
        found = subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--name", pattern], capture_output=True, text=True, check=False
        ).stdout.split()
        return Window(frame, found[-1]) if found else None

    def ended(self, patience=PATIENCE):
        """The exit status."""
        return self.process.wait(patience)

    def complaints(self):
        """What the program wrote on its standard outputs."""
        self.log.flush()
        self.log.seek(0)
        return self.log.read()

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.log.close()


def screenshot(path):
    run("import", "-window", "root", path)
