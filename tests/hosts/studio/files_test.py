"""Pictures and files: open, new, save as, recent, dropped, and the guard of unsaved changes."""

import struct
import sys
import time
from pathlib import Path

import desktop
from studio import Canvas, Studio, difference, new_picture, pixels, run_tests, temporary, wait_changed

HERE = Path(__file__).parent


def gone(studio, title):
    desktop.wait_until(
        lambda: not any(w.get_name() == title for w in studio.program.windows()), f"{title!r} to close"
    )


def change(window):
    desktop.press_keys("p")
    Canvas(window).drag((-50, -40), (0, 10), (60, 30))
    wait_changed(window)


def type_name(studio, title, name):
    dialog = studio.window(title)
    desktop.press_keys("ctrl+a")
    desktop.type_text(str(name))
    return dialog


def answer(studio, label):
    """Presses the button of a question on top of a dialog."""

    def question():
        frames = studio.program.windows()
        return frames[-1] if any(label in texts(frames[-1]) for _ in frames[-1:]) and len(frames) > 2 else None

    found = desktop.wait_until(question, f"a question with {label!r}")
    count = len(studio.program.windows())
    studio.program.on_screen(found).click("label", label)
    desktop.wait_until(lambda: len(studio.program.windows()) < count, "the question to close")


def choose_format(studio, *keys):
    for key in ("alt+f", "space", *keys, "Return"):
        desktop.press_keys(key)
        time.sleep(0.3)  # lists open and close with a movement


def save_in_other_formats():
    picture = new_picture(temporary("holiday.png"))
    with Studio(picture) as studio:
        window = studio.window("holiday.png")
        change(window)
        desktop.press_keys("ctrl+shift+s")
        jpeg = temporary("holiday.jpg")
        type_name(studio, "Save Picture As", jpeg)
        desktop.press_keys("Return")
        window = studio.window("^holiday.jpg")
        assert jpeg.read_bytes()[:3] == b"\xff\xd8\xff"
        wait_changed(window, False)

        # A name without an extension gets the format's; a file that is there is not lost unasked.
        before = picture.read_bytes()
        desktop.press_keys("ctrl+shift+s")
        type_name(studio, "Save Picture As", picture)
        desktop.press_keys("Return")
        answer(studio, "Cancel")
        assert picture.read_bytes() == before
        type_name(studio, "Save Picture As", picture)
        desktop.press_keys("Return")
        answer(studio, "Replace")
        studio.window("^holiday.png")
        assert picture.read_bytes() != before
        desktop.press_keys("ctrl+shift+s")
        written = jpeg.stat().st_mtime_ns
        type_name(studio, "Save Picture As", temporary("holiday"))
        choose_format(studio, "Down")  # from PNG to JPEG
        desktop.press_keys("alt+s")
        answer(studio, "Replace")
        studio.window("^holiday.jpg")
        assert jpeg.stat().st_mtime_ns > written

        studio.assert_silent()


def open_from_dialog(studio, path):
    desktop.press_keys("ctrl+o")
    studio.window("Open Pictures")
    desktop.press_keys("ctrl+l")
    desktop.type_text(str(path))
    desktop.press_keys("Return")


def message_about(studio, path):
    desktop.wait_until(
        lambda: any(path.name in text for w in studio.program.windows() for text in texts(w)), "the message"
    )
    return studio.window("^Orvane Studio$")


def open_what_is_no_picture():
    picture = new_picture(temporary("good.png"))
    bad = temporary("bad.png")
    bad.write_bytes(b"\x89PNG\r\n\x1a\nnothing")
    with Studio(picture) as studio:
        window = studio.window("good.png")
        open_from_dialog(studio, bad)
        message = message_about(studio, bad)
        assert window.frame.get_name().startswith("good.png"), "what was open stays"
        message.focus()
        desktop.press_keys("Return")
        desktop.wait_until(lambda: len(studio.program.windows()) == 1, "the window made for it to close")
        assert window.frame.get_name().startswith("good.png")

        # The window made for it stays when another file is being opened in it as the message closes.
        large = new_picture(temporary("large.png"), 6000, 5000)
        window.focus()
        open_from_dialog(studio, bad)
        message = message_about(studio, bad)
        with Studio(large) as second:  # which hands the file over
            second.program.ended()
        message.focus()
        desktop.press_keys("Return")
        studio.window("^large.png")
        assert len(studio.program.windows()) == 2
        studio.assert_silent()


def texts(frame):
    return [node.get_name() for node in desktop.descendants(frame) if node.get_name()]


def guard_unsaved_changes():
    picture = new_picture(temporary("guarded.png"))
    before = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("guarded.png")
        change(window)
        desktop.press_keys("ctrl+w")
        studio.window("Unsaved changes").click("label", "Cancel")
        gone(studio, "Unsaved changes")
        assert window.frame.get_name().startswith("• ")
        window.focus()
        desktop.press_keys("ctrl+w")
        studio.window("Unsaved changes").click("label", "Save")
        assert studio.program.ended() == 0
        assert difference(pixels(picture), before) > 0
        studio.assert_silent()
    kept = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("guarded.png")
        change(window)
        desktop.press_keys("ctrl+q")
        studio.window("Unsaved changes").click("label", "Discard")
        assert studio.program.ended() == 0
        assert difference(pixels(picture), kept) == 0
        studio.assert_silent()


def with_second_page(tiff):
    """The file with its only directory once more, behind the first."""
    order = "<" if tiff[:2] == b"II" else ">"
    (first,) = struct.unpack_from(order + "I", tiff, 4)
    (entries,) = struct.unpack_from(order + "H", tiff, first)
    link = first + 2 + 12 * entries
    return tiff[:link] + struct.pack(order + "I", len(tiff)) + tiff[link + 4 :] + tiff[first:link] + bytes(4)


def with_second_frame(gif):
    """The file with all that follows its colours once more."""
    colours = 3 << (gif[10] & 7) + 1 if gif[10] & 0x80 else 0
    return gif[:-1] + gif[13 + colours :]


def keep_the_other_pages():
    for name, what, extend in (("scans.tif", "pages", with_second_page), ("dance.gif", "frames", with_second_frame)):
        picture = new_picture(temporary(name), 60, 40)
        before = extend(picture.read_bytes())
        picture.write_bytes(before)
        with Studio(picture) as studio:
            window = studio.window(f"^{name}")
            desktop.press_keys("ctrl+m")
            wait_changed(window)
            for button in ("Cancel", "Save As…", "Replace"):
                window.focus()
                desktop.press_keys("ctrl+s")
                question = studio.window("^Replace file$")
                assert f"“{name}” has several {what}" in question.texts(), question.texts()
                question.click("label", button)
                gone(studio, "Replace file")
                if button == "Save As…":
                    studio.window("Save Picture As")
                    desktop.press_keys("Escape")
                    gone(studio, "Save Picture As")
                if button != "Replace":
                    assert picture.read_bytes() == before
            wait_changed(window, False)
            assert picture.read_bytes() != before

            # From then on it is the Studio's own.
            desktop.press_keys("ctrl+m")
            wait_changed(window)
            desktop.press_keys("ctrl+s")
            wait_changed(window, False)
            studio.assert_silent()


def what_is_placed_is_not_lost():
    picture = new_picture(temporary("placed too.png"))
    before = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("placed too.png")
        desktop.press_keys("r")
        canvas = Canvas(window)
        canvas.drag((-60, -40), (20, 10), (60, 40))
        wait_changed(window)
        desktop.press_keys("ctrl+w")
        studio.window("Unsaved changes").click("label", "Cancel")
        gone(studio, "Unsaved changes")
        window.focus()
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        assert difference(pixels(picture), before) > 100, "what is seen is saved"
        desktop.press_keys("ctrl+w")
        assert studio.program.ended() == 0
        studio.assert_silent()


def closed_while_saving():
    picture = new_picture(temporary("large.png"), 3000, 2000)
    before = picture.read_bytes()
    with Studio(picture) as studio:
        window = studio.window("large.png")
        change(window)
        desktop.run("xdotool", "key", "--clearmodifiers", "ctrl+s", "ctrl+w")
        assert studio.program.ended() == 0, "the window waits and has nothing to ask"
        assert picture.read_bytes() != before
        studio.assert_silent()
    kept = picture.read_bytes()
    with Studio(picture) as studio:
        window = studio.window("large.png")
        copy = temporary("large copy.png")
        copy.unlink(missing_ok=True)
        desktop.press_keys("ctrl+shift+s")
        type_name(studio, "Save Picture As", copy)
        desktop.press_keys("Return")
        gone(studio, "Save Picture As")
        window.focus()
        desktop.press_keys("ctrl+w")
        assert studio.program.ended() == 0
        assert difference(pixels(copy), pixels(picture)) == 0
        assert picture.read_bytes() == kept
        studio.assert_silent()


def new_and_two_windows():
    picture = new_picture(temporary("first.png"))
    with Studio(picture) as studio:
        first = studio.window("first.png")
        desktop.press_keys("ctrl+n")
        studio.window("New Picture")
        desktop.press_keys("Return")
        second = studio.window("^Untitled")
        assert "1280 × 800" in second.texts()
        assert "400 × 300" in first.texts()

        # One window's dialog keeps that window waiting, and no other.
        first.focus()
        desktop.press_keys("alt+r")
        time.sleep(0.3)  # the menu opens with a movement
        desktop.press_keys("b", "g")
        dialog = studio.window("Gaussian Blur")
        wait_changed(first)  # the preview
        second.focus()
        change(second)
        desktop.press_keys("ctrl+z")
        wait_changed(second, False)

        # A window with a dialog stays when all are to close, and does not ask about a preview.
        desktop.press_keys("ctrl+q")
        gone(studio, "Untitled – Orvane Studio")
        time.sleep(0.3)
        assert len(studio.program.windows()) == 2, [w.get_name() for w in studio.program.windows()]
        dialog.click("push button", "Cancel")
        gone(studio, "Gaussian Blur")
        wait_changed(first, False)
        first.focus()
        change(first)
        studio.assert_silent()


def drop(files, target):
    """Drags files from another program to a place on the screen."""
    source = desktop.Program(sys.executable, "-B", str(HERE / "drag_source.py"), *map(str, files))
    try:
        handle = source.window("Drag source")
        x, y, width, height = handle.area(handle.find("label", "Drag me"))
        start = (x + width // 2, y + height // 2)
        steps = ["mousemove", *map(str, start), "sleep", "0.1", "mousedown", "1", "sleep", "0.1"]
        for k in range(1, 6):
            steps += ["mousemove", *(str(a + (b - a) * k // 5) for a, b in zip(start, target)), "sleep", "0.08"]
        desktop.run("xdotool", *steps, "sleep", "0.3", "mouseup", "1", "sleep", "0.3")
    finally:
        source.stop()


def middle_of(window, role, name):
    x, y, width, height = window.area(window.find(role, name))
    return x + width // 2, y + height // 2


def drop_files():
    first, second, third = (new_picture(temporary(f"{name}.png")) for name in ("there", "beside", "third"))
    with Studio() as studio:
        window = studio.window("^Orvane Studio$")
        drop([first, second], middle_of(window, "push button", "Pencil"))
        studio.window("^beside.png")
        window = studio.window("^there.png")
        desktop.press_keys("t")
        drop([third], middle_of(window, "text", "Text"))
        studio.window("^third.png")
        assert not window.frame.get_name().startswith("third"), "what the window shows is not lost"
        studio.assert_silent()


def recent_files():
    picture = new_picture(temporary("recent one.png"))
    with Studio(picture) as studio:
        studio.window("recent one.png")
        time.sleep(1)  # the list is written some time later
        desktop.press_keys("ctrl+q")
        studio.program.ended()
    with Studio() as studio:
        Canvas(studio.window("^Orvane Studio$")).move((0, 0))  # in the menu the pointer would choose too
        desktop.press_keys("alt+f")
        time.sleep(0.3)
        desktop.press_keys("r")
        time.sleep(0.3)
        desktop.press_keys("Down", "Return")  # below the way back
        studio.window("recent one.png")
        studio.assert_silent()


if __name__ == "__main__":
    run_tests(
        save_in_other_formats,
        open_what_is_no_picture,
        guard_unsaved_changes,
        what_is_placed_is_not_lost,
        keep_the_other_pages,
        closed_while_saving,
        new_and_two_windows,
        drop_files,
        recent_files,
    )
