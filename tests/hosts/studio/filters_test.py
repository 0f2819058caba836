"""Filters from the menu: with a dialog that previews, cancelled, kept, and without one."""

import time

import desktop
from studio import Studio, difference, new_picture, orvane, pixels, run_tests, temporary, title_of, wait_changed


def open_filter(studio, keys, title):
    """Goes through the menus by their letters."""
    desktop.press_keys("alt+r")
    time.sleep(0.3)
    desktop.press_keys(*keys)
    dialog = studio.program.window(title)
    dialog.focus()
    return dialog


def type_number(dialog, name, value):
    spin = dialog.find("spin button", name)
    x, y, _, height = dialog.area(spin)
    desktop.run("xdotool", "mousemove", str(x + 20), str(y + height // 2), "click", "--repeat", "3", "--delay", "60", "1")
    desktop.type_text(str(value))


def set_number(dialog, name, value):
    type_number(dialog, name, value)
    desktop.press_keys("Tab")


def saved(window, picture):
    """The picture as it is now, by way of its file."""
    desktop.press_keys("ctrl+s")
    wait_changed(window, False)
    return pixels(picture)


def closed(studio, title):
    desktop.wait_until(
        lambda: not any(w.get_name() == title for w in studio.program.windows()), f"the dialog {title!r} to close"
    )


def cancel_leaves_everything():
    picture = new_picture(temporary("cancelled.png"))
    before = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("cancelled.png")
        dialog = open_filter(studio, "bg", "Gaussian Blur")
        set_number(dialog, "Radius", 12)
        desktop.wait_until(lambda: window.frame.get_name().startswith("•"), "the preview")
        dialog.click("push button", "Cancel")
        closed(studio, "Gaussian Blur")
        wait_changed(window, False)
        for name in ("Undo", "Redo"):
            button = window.find("push button", name)
            assert not desktop.is_sensitive(button), f"{name} has nothing to do"
        desktop.press_keys("ctrl+shift+s")
        copy = temporary("copy.png")
        studio.window("Save Picture As")
        desktop.press_keys("ctrl+a")
        desktop.type_text(str(copy))
        desktop.press_keys("Return")
        desktop.wait_until(copy.exists, "the copy")
        closed(studio, "Save Picture As")
        assert difference(pixels(copy), before) == 0
        studio.assert_silent()


def apply_keeps_one_step():
    picture = new_picture(temporary("filtered.png"))
    original = pixels(picture)
    expected = temporary("expected.png")
    orvane("LoadImage", picture, "GaussianBlur", 9, 3, "-o", expected)
    with Studio(picture) as studio:
        window = studio.window("filtered.png")
        dialog = open_filter(studio, "bg", "Gaussian Blur")
        set_number(dialog, "Radius", 2)
        set_number(dialog, "Radius", 9)
        set_number(dialog, "Fall-off", 3)
        dialog.click("push button", "Apply")
        closed(studio, "Gaussian Blur")
        assert difference(saved(window, picture), pixels(expected)) == 0
        desktop.press_keys("ctrl+z")
        wait_changed(window)
        assert difference(saved(window, picture), original) == 0, "one step takes it all back"
        desktop.press_keys("ctrl+shift+z")
        wait_changed(window)
        assert difference(saved(window, picture), pixels(expected)) == 0
        studio.assert_silent()


def half_typed_numbers():
    picture = new_picture(temporary("typed.png"))
    with Studio(picture) as studio:
        window = studio.window("typed.png")
        dialog = open_filter(studio, "bg", "Gaussian Blur")
        wait_changed(window)
        type_number(dialog, "Radius", 17)
        desktop.press_keys("Escape")
        closed(studio, "Gaussian Blur")
        wait_changed(window, False)
        time.sleep(0.5)
        assert not title_of(window).startswith("•"), "a number that was being typed is dropped with the dialog"

        desktop.press_keys("ctrl+alt+s")
        dialog = studio.program.window("Scale Picture")
        dialog.focus()
        type_number(dialog, "Width", 200)
        desktop.press_keys("alt+s")
        closed(studio, "Scale Picture")
        wait_changed(window)
        assert saved(window, picture)[:2] == (200, 150), "and counts when the command is given"
        studio.assert_silent()


def without_preview_and_without_dialog():
    picture = new_picture(temporary("plain.png"))
    expected = temporary("expected.png")
    orvane("LoadImage", picture, "Emboss", 2, 0, "Invert", "-o", expected)
    with Studio(picture) as studio:
        window = studio.window("plain.png")
        dialog = open_filter(studio, "sm", "Emboss")
        wait_changed(window)
        dialog.click("check box", "Preview")
        time.sleep(0.3)
        dialog.click("push button", "Apply")
        closed(studio, "Emboss")
        desktop.press_keys("alt+r")
        time.sleep(0.3)
        desktop.press_keys("c", "i")
        time.sleep(0.3)
        assert difference(saved(window, picture), pixels(expected)) == 0
        studio.assert_silent()


def own_kernel():
    picture = new_picture(temporary("kernel.png"))
    expected = temporary("expected.png")
    orvane("LoadImage", picture, "UserEffect", "0,-1,0,-1,5,-1,0,-1,0", "-o", expected)
    with Studio(picture) as studio:
        window = studio.window("kernel.png")
        dialog = open_filter(studio, "so", "Own Kernel")
        dialog.click("push button", "Apply")
        closed(studio, "Own Kernel")
        assert difference(saved(window, picture), pixels(expected)) == 0
        studio.assert_silent()


if __name__ == "__main__":
    run_tests(
        cancel_leaves_everything,
        apply_keeps_one_step,
        without_preview_and_without_dialog,
        own_kernel,
        half_typed_numbers,
    )
