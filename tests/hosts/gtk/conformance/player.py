"""Plays the steps of a scenario on the widget: members through introspection, the mouse with a real pointer on a real
window. Prints what the command line program prints. Reads the steps as JSON from standard input."""

import itertools
import json
import os
import subprocess
import sys
import time

import gi

gi.require_version("Gtk", "4.0")
gi.require_version("GdkX11", "4.0")
gi.require_version("Orvane", "1.0")
from gi.repository import GdkX11  # noqa: F401 (it gives surfaces their number)
from gi.repository import Gdk, Gio, GLib, GObject, Gtk, Orvane

from steps import read_members

PATIENCE = 20  # seconds; a busy machine may need many
CONTEXT = GLib.MainContext.default()
FORMATS = {".bmp": 0, ".jpg": 1, ".gif": 2, ".tif": 3, ".png": 4}
CORNER = (100, 80)  # of the window, so that there is room on all its sides


def until(condition, what):
    """Lets the main loop run until the condition holds."""
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise TimeoutError(f"waited in vain for {what}")
        if not CONTEXT.iteration(False):
            time.sleep(0.0005)


def events():
    """The widget's signals by the names of the control's events."""
    names = set(GObject.signal_list_names(Orvane.Vistrel)) - {"picture-changed"}
    return {"On" + name.title().replace("-", ""): name for name in names}


def xdotool(*words):
    """Returns when the server has done it; the events that follow wait in the connection."""
    subprocess.run(["xdotool", *map(str, words)], check=True, stdout=subprocess.DEVNULL)


class Values:
    """The command line program's way of writing values."""

    @staticmethod
    def read(text, kind):
        if kind in ("Long", "Byte"):
            return int(text, 0)
        if kind == "Double":
            return float(text)
        if kind == "Boolean":
            return text in ("true", "1")
        if kind == "Color":
            bgr, colour = int(text, 0), Gdk.RGBA()
            colour.red, colour.green, colour.blue = (bgr & 255) / 255, (bgr >> 8 & 255) / 255, (bgr >> 16) / 255
            return colour
        if kind == "LongArray":
            return [int(number, 0) for number in text.split(",")]
        if kind == "ByteArray":
            with open(text, "rb") as file:
                return file.read()
        return text

    @staticmethod
    def printed(value, kind):
        if value is None:
            return "null"
        if kind == "Boolean":
            return "true" if value else "false"
        if kind == "Color":
            red, green, blue = (round(part * 255) for part in (value.red, value.green, value.blue))
            return f"0x{blue << 16 | green << 8 | red:08X}"
        if kind == "Double":
            return repr(value).removesuffix(".0")
        if kind == "LongArray":
            return " ".join(map(str, value)) if value else "null"
        return str(value)


class Timers:
    """The timers that the widget starts tick when a scenario says so, not when the clock does."""

    def __init__(self):
        self._latest = self._next_number()
        self._held = []

    @staticmethod
    def _next_number():
        number = GLib.timeout_add_seconds(1000, lambda: False)
        GLib.source_remove(number)
        return number

    def hold_new(self):
        """Stops the timers that were started since the last call."""
        latest = self._next_number()
        for number in range(self._latest + 1, latest):
            source = CONTEXT.find_source_by_id(number)
            if source is not None and source.get_name() is None and source.get_ready_time() > 0:
                source.set_ready_time(-1)
                self._held.append(source)
        self._latest = latest

    def tick(self):
        for source in self._held:
            if not source.is_destroyed():
                source.set_ready_time(0)
                until(lambda: source.get_ready_time() != 0, "a tick")
                source.set_ready_time(-1)


class Player:
    def __init__(self, members, *, slow):
        self.members, self.slow = members, slow
        self.widget = Orvane.Vistrel()
        self.window = Gtk.Window(decorated=False, child=self.widget)
        self.at = None  # where the widget has seen the pointer; None: outside
        self.held = set()
        self.setters = itertools.cycle((False, True))
        self._watch_pointer()
        self._watch_events()
        self.timers = Timers()

    def show(self):
        self.resize(640, 480)
        xdotool("windowmove", "--sync", self.window.get_surface().get_xid(), *CORNER)
        self.move((0, 0))

    def _watch_pointer(self):
        def motion(_controller, x, y):
            self.at = (int(x), int(y))

        def leave(_controller):
            self.at = None
        watch = Gtk.EventControllerMotion(propagation_phase=Gtk.PropagationPhase.CAPTURE)
        watch.connect("motion", motion)
        watch.connect("leave", leave)
        self.widget.add_controller(watch)

    def _watch_events(self):
        for event, signal in events().items():
            self.widget.connect(signal, lambda _widget, *values, event=event: print("event", event, *values))

    def settle(self):
        """Lets the main loop run until a frame has shown all that has happened."""
        clock = self.widget.get_frame_clock()
        frame = clock.get_frame_counter()
        clock.request_phase(Gdk.FrameClockPhase.PAINT)
        until(lambda: clock.get_frame_counter() > frame, "a frame")
        self.widget.get_display().sync()
        until(lambda: not CONTEXT.pending(), "a quiet moment")

    # --- the window's steps ---

    def resize(self, width, height):
        self.window.set_default_size(width, height)
        self.window.present()
        until(lambda: (self.widget.get_width(), self.widget.get_height()) == (width, height), "the window's size")
        self.settle()

    def move(self, *points):
        """Returns when the last point has arrived. Of those before it the toolkit may make one event with a history."""
        xdotool(*(word for x, y in points for word in ("mousemove", CORNER[0] + x, CORNER[1] + y)))
        x, y = points[-1]
        inside = 0 <= x < self.widget.get_width() and 0 <= y < self.widget.get_height()
        arrived = (x, y) if inside or self.held else None
        until(lambda: self.at == arrived, f"the pointer at {x}, {y}")

    def button(self, number, down):
        """Between two steps of a hand there is time for a frame."""
        self.settle()
        xdotool("mousedown" if down else "mouseup", number)
        (self.held.add if down else self.held.discard)(number)
        self.settle()

    def tick(self, count):
        for _ in range(count):
            self.timers.tick()

    def drop(self, path):
        target = next(c for c in self.widget.observe_controllers() if isinstance(c, Gtk.DropTarget))
        target.emit("drop", Gdk.FileList.new_from_list([Gio.File.new_for_path(path)]), 10, 10)

    def view(self, path):
        self.settle()
        window = self.window.get_surface().get_xid()
        subprocess.run(["import", "-silent", "-window", str(window), path], check=True)

    # --- the members ---

    def call(self, member, words):
        values = [Values.read(word, kind) for word, kind in zip(words, member.parameters)]
        if self.slow and member.type in ("", "Boolean"):
            result = self._call_slowly(member, values)
        else:
            result = getattr(self.widget, member.spelling)(*values)
        if member.type == "ByteArray" and result is not None:
            with open(words[-1], "wb") as file:
                file.write(result.get_data())
        elif member.type:
            print(f"{member.name}: {Values.printed(result, member.type)}")

    def _call_slowly(self, member, values):
        """On the widget's worker thread."""
        kinds = {"Long": "i", "Double": "d", "String": "s", "Color": "u", "LongArray": "ai", "ByteArray": "ay"}
        def plain(value):
            if not isinstance(value, Gdk.RGBA):
                return value
            red, green, blue = (round(part * 255) for part in (value.red, value.green, value.blue))
            return red << 16 | green << 8 | blue
        variant = None
        if values:
            signature = "(" + "".join(kinds[kind] for kind in member.parameters) + ")"
            variant = GLib.Variant(signature, tuple(map(plain, values)))
        ended = []
        self.widget.invoke_async(member.spelling.replace("_", "-"), variant, None, lambda _w, r: ended.append(r))
        until(lambda: ended, member.name)
        result = self.widget.invoke_finish(ended[0])
        return None if result is None else result.unpack()

    def put(self, member, word):
        """By turns as a property and by its function."""
        value = Values.read(word, member.type)
        if next(self.setters):
            getattr(self.widget, "set_" + member.spelling)(value)
        else:
            self.widget.set_property(member.spelling.replace("_", "-"), value)

    def get(self, member):
        value = Values.printed(self.widget.get_property(member.spelling.replace("_", "-")), member.type)
        told = Values.printed(getattr(self.widget, "get_" + member.spelling)(), member.type)
        if told != value:
            raise AssertionError(f"{member.name}: the function tells {told}, the property {value}")
        print(f"{member.name}: {value}")

    # --- all of them ---

    def play(self, step):
        word, *rest = step
        if word == "-o":
            self.call(self.members["SaveImage"], [rest[0], str(FORMATS[os.path.splitext(rest[0])[1]])])
        elif word.startswith("@"):
            self._play_window_step(word, rest)
        elif word.endswith("?"):
            self.get(self.members[word[:-1]])
        elif "=" in word:
            name, _, value = word.partition("=")
            self.put(self.members[name], value)
        else:
            self.call(self.members[word], rest)
        self.timers.hold_new()

    def _play_window_step(self, word, rest):
        if not self.window.get_visible():
            self.show()
        if word in ("@drop", "@view"):
            return {"@drop": self.drop, "@view": self.view}[word](rest[0])
        numbers = list(map(int, rest))
        if word == "@size":
            self.resize(*numbers)
        elif word == "@move":
            self.move(*zip(numbers[::2], numbers[1::2]))
        elif word == "@tick":
            self.tick(*numbers)
        else:
            self.button(3 if "right" in word else 1, "press" in word)


def in_haste(steps):
    """Moves with the button held are made at once."""
    held, result = False, []
    for step in steps:
        if held and step[0] == "@move" == result[-1][0]:
            result[-1] = result[-1] + step[1:]
        else:
            result.append(step)
        held = step[0] == "@press" or held and step[0] != "@release"
    return result


def main():
    player = Player(read_members(os.environ["ORVANE_MEMBERS"]), slow="--slowly" in sys.argv)
    if "--shown-late" not in sys.argv:
        player.show()
    steps = json.load(sys.stdin)
    for step in in_haste(steps) if "--in-haste" in sys.argv else steps:
        try:
            player.play(step)
        except Exception as problem:
            raise RuntimeError(f"at the step {' '.join(step)}") from problem


if __name__ == "__main__":
    main()
