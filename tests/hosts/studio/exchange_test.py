"""Copy and paste between two Studios, and within one."""

import signal
import sys
import time
from pathlib import Path

import desktop
from studio import Canvas, Studio, difference, new_picture, pixels, run_tests, temporary, wait_changed


def select_and_copy(window):
    window.focus()
    desktop.press_keys("s")
    desktop.wait_until(lambda: any(text.startswith("Selection: ") for text in window.texts()), "the selection's tool")
    Canvas(window).drag((-60, -40), (0, 0), (59, 39))
    desktop.press_keys("ctrl+c")


def paste_and_save(window, picture):
    window.focus()
    desktop.press_keys("ctrl+v")
    desktop.wait_until(lambda: any("stamp:" in text for text in window.texts()), "the stamp of the pasted picture")
    desktop.press_keys("Return")
    wait_changed(window)
    desktop.press_keys("ctrl+s")
    wait_changed(window, False)
    return pixels(picture)


def area(picture, left, top, width, height):
    full_width, _, data = picture
    return [data[4 * (full_width * y + left) : 4 * (full_width * y + left + width)] for y in range(top, top + height)]


def holds(picture, part, width, height):
    """Whether the picture has the part somewhere."""
    full_width, full_height, data = picture
    rows = [data[4 * full_width * y : 4 * full_width * (y + 1)] for y in range(full_height)]
    for y in range(full_height - height + 1):
        x = rows[y].find(part[0])
        while x >= 0:
            if x % 4 == 0 and all(rows[y + k][x : x + 4 * width] == part[k] for k in range(height)):
                return True
            x = rows[y].find(part[0], x + 1)
    return False


def between(first, second):
    """What is copied in one window arrives in the other as it was."""
    one, other = new_picture(temporary("one.png")), new_picture(temporary("other.png"), 500, 320)
    source, before = pixels(one), pixels(other)
    with first(one) as giver:
        with second(giver, other) as taker:
            to_window = taker.window("other.png")  # both are open before anything is typed
            from_window = giver.window("one.png")
            select_and_copy(from_window)
            after = paste_and_save(to_window, other)
            changed = difference(after, before)
            assert 100 * 60 < changed <= 121 * 81, changed
            # The frame lies around the middle of a picture of 400 x 300.
            inner = area(source, 200 - 50, 150 - 30, 100, 60)
            assert holds(after, inner, 100, 60), "the copied pixels are in the other picture"
            giver.assert_silent()
            taker.assert_silent()


class Again:
    """The same Studio, as a second one."""

    def __init__(self, studio):
        self.studio = studio

    def __enter__(self):
        return self.studio

    def __exit__(self, *_):
        pass


def two_programs():
    between(Studio, lambda _, path: Studio("--gapplication-app-id=io.github.orvane.Other", path))


def two_windows():
    def open_too(giver, path):
        giver.window("one.png")
        desktop.press_keys("ctrl+o")
        giver.window("Open Pictures")
        desktop.press_keys("ctrl+l")
        desktop.type_text(str(path))
        desktop.press_keys("Return")
        return Again(giver)

    between(Studio, open_too)


class SilentOwner:
    """Another program with a picture on the clipboard, which answers only while it is let."""

    def __init__(self, picture):
        self.program = desktop.Program(sys.executable, "-B", str(Path(__file__).with_name("clipboard_owner.py")), picture)

    def __enter__(self):
        desktop.wait_until(lambda: "offered" in self.program.complaints(), "the clipboard's new owner")
        return self

    def __exit__(self, *_):
        self.program.stop()

    def be_silent(self):
        self.program.process.send_signal(signal.SIGSTOP)

    def answer(self):
        self.program.process.send_signal(signal.SIGCONT)


def can(window, button):
    return desktop.is_sensitive(window.find("push button", button))


def paste_from(owner, window):
    """Gives the command to an owner that does not answer."""
    window.focus()
    desktop.press_keys("m")
    desktop.wait_until(lambda: can(window, "Paste"), "something to paste")
    owner.be_silent()
    desktop.press_keys("ctrl+v")
    desktop.wait_until(lambda: not can(window, "Save"), "the wait for the clipboard")


def wait_for_a_silent_owner():
    stamp, picture = new_picture(temporary("offered.png"), 60, 40), new_picture(temporary("waiting.png"))
    before = pixels(picture)
    with SilentOwner(str(stamp)) as owner, Studio(picture) as studio:
        window = studio.window("waiting.png")
        paste_from(owner, window)
        desktop.press_keys("ctrl+Right", "ctrl+s")
        desktop.wait_until(lambda: window.all("progress bar"), "the progress")
        assert len(studio.program.windows()) == 1, "nothing is done, and nothing has failed"
        owner.answer()
        desktop.wait_until(lambda: can(window, "Save"), "the paste's end")
        desktop.press_keys("Return")
        wait_changed(window)

        # Who closes the window is asked at once; saving follows when the clipboard has had its time.
        paste_from(owner, window)
        desktop.press_keys("ctrl+w")
        studio.window("Unsaved changes").click("label", "Save")
        assert studio.program.ended() == 0
        assert 60 * 40 // 2 < difference(pixels(picture), before) <= 60 * 40
        studio.assert_silent()
        owner.answer()

    with SilentOwner(str(stamp)) as owner, Studio(picture) as studio:
        paste_from(owner, studio.window("waiting.png"))
        begin = time.monotonic()
        desktop.press_keys("ctrl+w")
        assert studio.program.ended() == 0
        assert time.monotonic() - begin < 2, "closing ends the wait"
        studio.assert_silent()


if __name__ == "__main__":
    run_tests(
        two_windows,
        two_programs,
        wait_for_a_silent_owner,
    )
