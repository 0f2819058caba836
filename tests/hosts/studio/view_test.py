"""What the window shows about the picture, and the windows of help."""

import time

import desktop
from studio import Canvas, Studio, new_picture, orvane, position, run_tests, temporary, wait_changed


def shows(window, text):
    desktop.wait_until(lambda: text in window.texts(), f"{text!r} in the window")


def position_at(window, canvas, point):
    """What the status bar says when the pointer has come to a place."""
    before = position(window)
    canvas.move(point)
    return desktop.wait_until(lambda: position(window) != before and position(window), "another position")


def zoom_and_position():
    picture = new_picture(temporary("zoomed.png"))
    with Studio(picture) as studio:
        window = studio.window("zoomed.png")
        canvas = Canvas(window)
        shows(window, "100 %")
        desktop.press_keys("ctrl+plus")
        desktop.wait_until(lambda: "100 %" not in window.texts(), "a larger picture")
        desktop.press_keys("ctrl+1")
        shows(window, "100 %")
        x, y = position_at(window, canvas, (0, 0))
        assert abs(x - 200) <= 2 and abs(y - 150) <= 2, (x, y)
        assert position_at(window, canvas, (-100, 50)) == (x - 100, y + 50)
        canvas.move((-100, 170))
        desktop.wait_until(lambda: not position(window), "no position beside the picture")
        canvas.move((0, 0))
        desktop.run("xdotool", "keydown", "ctrl", "click", "4", "keyup", "ctrl")
        desktop.wait_until(lambda: "100 %" not in window.texts(), "the wheel's zoom")
        desktop.press_keys("ctrl+0")
        studio.assert_silent()


def actual_size_of_a_very_wide_picture():
    picture = new_picture(temporary("wide.png"), 12000, 40)
    with Studio(picture) as studio:
        window = studio.window("wide.png")
        shows(window, "12000 × 40")
        assert "100 %" not in window.texts(), "the picture is fitted"
        desktop.press_keys("ctrl+1")
        shows(window, "100 %")


def histogram_follows_the_picture():
    picture = temporary("grey.png")
    orvane("BitmapBackColor=0x404040", "NewImage", 200, 150, "-o", picture)
    with Studio(picture) as studio:
        window = studio.window("grey.png")
        shows(window, "Luma: mean 64.0, median 64")
        desktop.press_keys("alt+r")
        time.sleep(0.3)
        desktop.press_keys("c", "i")
        shows(window, "Luma: mean 191.0, median 191")
        desktop.press_keys("F8")
        desktop.wait_until(lambda: not window.all("label", "Histogram"), "the panel to go")
        desktop.press_keys("ctrl+z", "F8")
        shows(window, "Luma: mean 64.0, median 64")
        studio.assert_silent()


def progress_of_what_takes_long():
    picture = new_picture(temporary("large.png"), 6000, 5000)
    with Studio(picture) as studio:
        window = studio.window("large.png")
        desktop.press_keys("alt+r")
        time.sleep(0.3)
        desktop.press_keys("c", "i")
        wait_changed(window)
        assert not window.all("progress bar"), "quick things show no progress"
        # Noise is hard to compress. What would have to wait for it must not have the window wait.
        desktop.run("xdotool", "key", "--clearmodifiers", "ctrl+s", "F7")
        desktop.wait_until(lambda: window.all("progress bar"), "the progress bar")
        wait_changed(window, False)
        desktop.wait_until(lambda: not window.all("progress bar"), "the progress bar to go")
        studio.assert_silent()


def help_and_appearance():
    picture = new_picture(temporary("help.png"))
    with Studio(picture) as studio:
        window = studio.window("help.png")
        desktop.press_keys("F1")
        shortcuts = desktop.wait_until(
            lambda: next((w for w in studio.program.windows() if "Gaussian" not in w.get_name() and holds_all(w)), None),
            "the shortcuts",
        )
        assert shortcuts
        desktop.press_keys("Escape")
        desktop.wait_until(lambda: len(studio.program.windows()) == 1, "the shortcuts to close")
        desktop.press_keys("alt+v")
        time.sleep(0.3)
        desktop.press_keys("r", "d")
        time.sleep(0.4)
        desktop.press_keys("alt+h")
        time.sleep(0.3)
        desktop.press_keys("a")
        desktop.wait_until(lambda: len(studio.program.windows()) == 2, "the window about the program")
        desktop.press_keys("Escape")
        desktop.wait_until(lambda: len(studio.program.windows()) == 1, "it to close")
        desktop.press_keys("F11")
        time.sleep(0.5)
        desktop.press_keys("F11")
        window.focus()
        desktop.press_keys("ctrl+q")
        assert studio.program.ended() == 0
        studio.assert_silent()
    with Studio(picture) as studio:  # dark again, as it was left
        studio.window("help.png")
        studio.assert_silent()


def holds_all(frame):
    names = {node.get_name() for node in desktop.descendants(frame)}
    return {"Undo", "Save As", "Zoom In", "Pencil", "Rectangle"} <= names


if __name__ == "__main__":
    run_tests(
        zoom_and_position,
        actual_size_of_a_very_wide_picture,
        histogram_follows_the_picture,
        progress_of_what_takes_long,
        help_and_appearance,
    )
