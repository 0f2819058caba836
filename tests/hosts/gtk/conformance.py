"""The widget gives the command line program's pixels: every scenario is played on both, and all that they print, save
and show must be equal. One process per scenario on each side, because the random stream goes on from call to call; and
for the widget a display of its own, because there is one pointer and one clipboard on each.

conformance.py [NAME...] plays the scenarios of these names only. ORVANE_CONFORMANCE_FOLDER keeps what was written."""

import json
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import gi

gi.require_version("GdkPixbuf", "2.0")
gi.require_version("Gtk", "4.0")
gi.require_version("Orvane", "1.0")
from gi.repository import GdkPixbuf, Orvane

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE / "conformance"))
from player import events  # noqa: E402
from scenarios import scenarios  # noqa: E402
from steps import as_a_hand_does, parse, read_members  # noqa: E402

# Members of the widget that the command line has nothing to hold against. Its own tests look after these.
WIDGET_ONLY = {
    "new": "every scenario begins with it",
    "get_busy": "the program has no other thread",
    "get_pending": "the program's steps know what they have placed",
    "type_text": "nobody types into the program's pictures",
    "get_picture_serial": "names pixels, and the program's have no names",
    "image_point_at": "the program has no step that asks for it",
    "invoke_async": "it plays the scenarios that go slowly, as one way to call the methods",
    "invoke_finish": "likewise",
}
# Not compared, besides: the number of redraws (the widget redraws once per frame), the cursor (a theme's picture), the
# period of the timer (here it ticks when a step says so), and the way of a dropped file to the widget's drop target.
PROGRAM = os.environ["ORVANE_PROGRAM"]
MEMBERS = read_members(os.environ["ORVANE_MEMBERS"])
LIMIT = 60  # seconds for one side of a scenario
LANES = 3  # scenarios at a time; a hand waits for frames more than it works


def make_pictures(folder):
    """The same picture in every format that can be read: slopes in all channels, and a bright and a red spot."""
    width, height, pixels = 96, 64, bytearray()
    for y in range(height):
        for x in range(width):
            red, green, blue = 255 * x // width, 255 * y // height, (x * 7 + y * 13) % 256
            if (x - 30) ** 2 + (y - 20) ** 2 < 80:
                red, green, blue = 220, 30, 40
            if (x - 70) ** 2 + (y - 40) ** 2 < 120:
                red, green, blue = 250, 245, 235
            pixels += struct.pack("4B", blue, green, red, 255)
    (folder / "photo.raw").write_bytes(pixels)
    names = [word for kind in ("bmp", "jpg", "gif", "tif", "png") for word in ("-o", f"photo.{kind}")]
    subprocess.run([PROGRAM, "LoadFromImageArray", "photo.raw", "96", "64", *names, "ScaleImage", "0.25", "0.25", "-o",
                    "stamp.png"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["convert", "photo.png", "photo.webp"], cwd=folder, check=True)


def play(side, command, folder, text=""):
    """What a side prints."""
    done = subprocess.run(command, cwd=folder, input=text, capture_output=True, text=True, timeout=LIMIT)
    if done.returncode not in (0, 1 if side == "program" else 0):  # 1: a method answered false
        raise AssertionError(f"the {side} ended with {done.returncode}:\n{done.stderr}")
    return done.stdout


def play_widget(steps, folder, manners):
    command = [HERE.parents[1] / "support" / "with_display", sys.executable, "-B", HERE / "conformance" / "player.py"]
    return play("widget's side", command + ["--" + manner for manner in manners], folder, json.dumps(steps))


def pixels_of(path):
    """Size, and red, green and blue of all pixels."""
    picture = GdkPixbuf.Pixbuf.new_from_file(str(path))
    width, height = picture.get_width(), picture.get_height()
    channels, stride, data = picture.get_n_channels(), picture.get_rowstride(), picture.get_pixels()
    rows = [data[y * stride:y * stride + width * channels] for y in range(height)]
    return (width, height), [[row[channel::channels] for channel in range(3)] for row in rows]


def difference(path, other):
    """Where two pictures differ, in words; "" when they do not."""
    (size, rows), (other_size, other_rows) = pixels_of(path), pixels_of(other)
    if size != other_size:
        return f"{size} against {other_size}"
    wrong = [(x, y) for y in range(size[1]) if rows[y] != other_rows[y]
             for x in range(size[0]) if any(rows[y][c][x] != other_rows[y][c][x] for c in range(3))]
    if not wrong:
        return ""
    columns, lines = [x for x, _ in wrong], [y for _, y in wrong]
    return f"{len(wrong)} pixels, in {min(columns)}..{max(columns)} x {min(lines)}..{max(lines)}"


def compare(steps, program, widget):
    """Complaints about the files of both sides."""
    views = {step[1] for step in steps if step[0] == "@view"}
    names = {path.name for side in (program, widget) for path in side.iterdir()}
    for name in sorted(names):
        a, b = program / name, widget / name
        if not (a.exists() and b.exists()):
            yield f"{name}: {'only the widget' if b.exists() else 'only the program'} has written it"
        elif name in views:
            if where := difference(a, b):
                yield f"{name}, the view: {where}"
        elif a.read_bytes() != b.read_bytes():
            yield f"{name}: the bytes differ"


def run(name, text, pictures, place):
    """Plays one scenario; complaints, and what was used."""
    steps = as_a_hand_does(parse(text, MEMBERS))
    program, widget = place / "program", place / "widget"
    for folder in (program, widget):
        shutil.copytree(pictures, folder)
    told = play("program", [PROGRAM, "--force", *(word for step in steps for word in step)], program)
    answered = play_widget(steps, widget, name.split(", ")[1:])
    complaints = list(compare(steps, program, widget))
    for line, (expected, printed) in enumerate(zip(told.splitlines(), answered.splitlines())):
        if expected != printed:
            complaints.append(f"line {line + 1}: the program says {expected!r}, the widget {printed!r}")
            break
    if told.count("\n") != answered.count("\n"):
        complaints.append(f"the program prints {told.count(chr(10))} lines, the widget {answered.count(chr(10))}")
    used = {step[0].split("=")[0] + "=" if "=" in step[0] else step[0] for step in steps}
    used |= {"SaveImage"} if "-o" in used else set()
    return complaints, used | {line.split()[1] for line in told.splitlines() if line.startswith("event ")}


def unused(used):
    """Members and events that no scenario has touched."""
    wanted = set(events())
    for member in MEMBERS.values():
        wanted |= {member.name + "?"} if member.is_property else {member.name}
        wanted |= {member.name + "="} if member.can_put else set()
    return wanted - used


def strangers():
    """Members of the widget's type that no row of the members' table accounts for, and rows without a member."""
    known = set()
    for member in MEMBERS.values():
        name = member.spelling
        known |= {"get_" + name} if member.is_property else {name}
        known |= {"set_" + name} if member.can_put else set()
    there = {name for name in vars(Orvane.Vistrel) if not name.startswith("_")}
    own = {name for name in there if callable(getattr(Orvane.Vistrel, name)) and not name.startswith("do_")}
    return own ^ (known | set(WIDGET_ONLY))


def report(name, text, pictures, place):
    """Plays a scenario and tells how it went; the number of complaints, and what was used."""
    begin = time.monotonic()
    try:
        complaints, used = run(name, text, pictures, place / name)
    except (AssertionError, subprocess.TimeoutExpired) as problem:
        complaints, used = [str(problem)], set()
    print(f"{'differs' if complaints else 'equal  '} {time.monotonic() - begin:4.1f} s  {name}" +
          "".join("\n    " + complaint for complaint in complaints), flush=True)
    return len(complaints), used


def play_all(chosen, folder):
    """Faults, and what was used."""
    pictures = folder / "pictures"
    pictures.mkdir(parents=True)
    make_pictures(pictures)
    with ThreadPoolExecutor(LANES) as lanes:
        results = list(lanes.map(lambda scenario: report(*scenario, pictures, folder), chosen.items()))
    return sum(faults for faults, _ in results), set().union(*(used for _, used in results))


def main():
    chosen = scenarios(MEMBERS)
    if sys.argv[1:]:
        chosen = {name: chosen[name] for name in sys.argv[1:]}
    with tempfile.TemporaryDirectory() as folder:
        faults, used = play_all(chosen, Path(os.environ.get("ORVANE_CONFORMANCE_FOLDER", folder)))
    if not sys.argv[1:]:
        for what, names in (("no scenario uses", unused(used)), ("the widget and the table differ in", strangers())):
            if names:
                faults += 1
                print(what, *sorted(names))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
