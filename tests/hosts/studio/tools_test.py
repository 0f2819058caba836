"""Every tool, chosen by its key and used by hand on the picture."""

import time

import desktop
from studio import Canvas, Studio, difference, new_picture, orvane, pixels, position, run_tests, temporary, wait_changed

# Tool, key, what a hand does, and whether Return draws what was placed.
BOX = ((-120, -80), (-40, -20), (60, 70))
CORNERS = ((-120, -80), (100, -60), (40, 90), (-90, 60))


def drag(canvas):
    canvas.drag(*BOX)


def corners(canvas):
    for corner in CORNERS:
        canvas.click(corner)


def hold(canvas):
    canvas.drag((-60, -40), (-58, -38), (10, 12), hold=0.4)


def chain(canvas):
    for point in ((-120, -60), (-80, 40), (20, -50), (110, 60), (60, 90), (0, 100)):
        canvas.click(point)


TOOLS = [
    ("Line", "l", drag, True),
    ("Polyline", "y", corners, True),
    ("Curve", "u", corners, True),
    ("Bézier curve", "z", chain, True),
    ("Rectangle", "r", drag, True),
    ("Ellipse", "e", drag, True),
    ("Polygon", "g", corners, True),
    ("Closed curve", "d", corners, True),
    ("Arc", "a", drag, True),
    ("Pie", "i", drag, True),
    ("Pencil", "p", drag, False),
    ("Brush", "b", drag, False),
    ("Spray", "n", hold, False),
    ("Eraser", "x", drag, False),
]


def draw_with_every_tool():
    picture = new_picture(temporary("tools.png"))
    before = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("tools.png")
        canvas = Canvas(window)
        for name, key, gesture, places in TOOLS:
            desktop.press_keys(key)
            desktop.wait_until(
                lambda: any(text.startswith(name + ": ") for text in window.texts()), f"the hint of {name}"
            )
            gesture(canvas)
            if places:
                desktop.press_keys("Return")
            wait_changed(window)
            desktop.press_keys("ctrl+s")
            wait_changed(window, False)
            drawn = difference(pixels(picture), before)
            assert drawn > 40, f"{name} changed {drawn} pixels"
            desktop.press_keys("ctrl+z", "ctrl+s")
            desktop.wait_until(lambda: difference(pixels(picture), before) == 0, f"the undone {name} to be saved")
        studio.assert_silent()


def drop_what_is_placed():
    picture = new_picture(temporary("dropped.png"))
    with Studio(picture) as studio:
        window = studio.window("dropped.png")
        canvas = Canvas(window)
        desktop.press_keys("r")
        drag(canvas)
        desktop.press_keys("Escape", "Return")
        time.sleep(0.3)
        assert not window.frame.get_name().startswith("•"), "what was dropped is not drawn"
        studio.assert_silent()


def first_changed_row(one, other):
    return next(i // 4 // one[0] for i in range(0, len(one[2]), 4) if one[2][i : i + 4] != other[2][i : i + 4])


def text_and_stamp():
    picture = new_picture(temporary("placed.png"))
    stamp = new_picture(temporary("stamp.png"), 60, 40)
    damaged = temporary("damaged.png")
    damaged.write_bytes(b"\x89PNG\r\n\x1a\nnothing")
    before = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("placed.png")

        desktop.press_keys("t")
        window.click("text", "Text")
        desktop.type_text("something else")
        desktop.press_keys("ctrl+a")  # the field's, not the picture's
        desktop.type_text("Orvane")
        desktop.press_keys("Return")
        canvas = Canvas(window)
        canvas.drag((-185, -138), (-142, -80), (-92, -60))
        window.click("text", "Text")
        desktop.press_keys("End", "BackSpace")
        desktop.type_text("a")
        desktop.press_keys("Return", "Return")
        wait_changed(window)
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        with_text = pixels(picture)
        assert difference(with_text, before) > 100, "a text was drawn"
        assert first_changed_row(with_text, before) > 60, "where it was dragged, though it was corrected then"

        # A damaged picture is told of, and what is placed stays placed.
        desktop.press_keys("r")
        drag(canvas)
        desktop.press_keys("ctrl+shift+o")
        choose_file(studio, "Place a Picture", damaged)
        close_message(studio, "“damaged.png” was not opened")
        assert any(text.startswith("Rectangle: ") for text in window.texts()), "the tool is still the same"
        desktop.press_keys("Return")
        wait_changed(window)
        desktop.press_keys("ctrl+z")
        wait_changed(window, False)

        desktop.press_keys("ctrl+shift+o")
        choose_file(studio, "Place a Picture", stamp)
        desktop.wait_until(lambda: any("stamp:" in text for text in window.texts()), "the stamp's tool")
        desktop.press_keys("Return")
        wait_changed(window)
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        assert difference(pixels(picture), with_text) > 1000, "the picture was placed"
        studio.assert_silent()


def fill_with_a_texture():
    picture = new_picture(temporary("filled.png"))
    texture = new_picture(temporary("texture.png"), 20, 20)
    damaged = temporary("no texture.png")
    damaged.write_bytes(b"GIF89a and nothing else")
    with Studio(picture) as studio:
        window = studio.window("filled.png")
        desktop.press_keys("r")
        window.click("combo box", "Fill")
        desktop.press_keys("Down", "Down", "Down", "Return")
        for path, name in ((texture, "texture.png"), (damaged, "texture.png")):
            window.focus()
            window.click("push button", "Texture")
            choose_file(studio, "Choose a Texture", path)
            if path == damaged:
                close_message(studio, "“no texture.png” was not opened")
            desktop.wait_until(lambda: name in window.texts(), "the texture's name")
        studio.assert_silent()


def turn_and_mend_an_eye():
    picture = temporary("eye.png")
    orvane("BitmapBackColor=0x2020e0", "NewImage", 400, 300, "-o", picture)  # red all over
    before = pixels(picture)
    with Studio(picture) as studio:
        window = studio.window("eye.png")
        canvas = Canvas(window)
        desktop.press_keys("o")
        canvas.drag((-60, -40), (0, 0), (50, 40))
        wait_changed(window)
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        mended = pixels(picture)
        assert 1000 < difference(mended, before) <= 120 * 90, "red went, and only inside the frame"

        # The slider and its buttons are a bar in the view's lower left corner: the handle, and "Apply" beside it.
        desktop.press_keys("f")
        handle, apply, y = canvas.left + 220, canvas.left + 390, canvas.bottom - 38
        canvas.drag((handle, y), (handle + 10, y), (handle + 40, y))
        canvas.click((apply, y))
        wait_changed(window)
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        assert difference(pixels(picture), mended) > 1000, "the picture was turned"
        studio.assert_silent()


def look_around_and_measure():
    picture = new_picture(temporary("wide.png"), 1600, 1200)
    with Studio(picture) as studio:
        window = studio.window("wide.png")
        canvas = Canvas(window)
        desktop.press_keys("ctrl+1")
        desktop.wait_until(lambda: "100 %" in window.texts(), "the picture's own size")
        canvas.move((10, 10))
        x, y = desktop.wait_until(lambda: position(window), "a position")
        canvas.drag((10, 10), (-30, 0), (-90, -50))
        canvas.move((10, 11))
        canvas.move((10, 10))
        desktop.wait_until(lambda: position(window) == (x + 100, y + 60), "the picture to have moved with the hand")
        desktop.press_keys("k")
        canvas.drag((0, 0), (20, 10), (60, 40))
        time.sleep(0.3)
        assert not window.frame.get_name().startswith("•"), "measuring changes nothing"
        studio.assert_silent()


def choose_file(studio, title, path):
    chooser = studio.window(title)
    desktop.press_keys("ctrl+l")
    desktop.type_text(str(path))
    desktop.press_keys("Return")
    desktop.wait_until(lambda: not any(w.get_name() == title for w in studio.program.windows()), "the chooser to close")
    return chooser


def close_message(studio, text):
    message = studio.window("^Orvane Studio$")
    assert text in message.texts(), message.texts()
    desktop.press_keys("Return")
    desktop.wait_until(
        lambda: not any(w.get_name() == "Orvane Studio" for w in studio.program.windows()), "the message to close"
    )


def crop_rotate_and_select():
    picture = new_picture(temporary("frames.png"))
    with Studio(picture) as studio:
        window = studio.window("frames.png")
        canvas = Canvas(window)
        desktop.press_keys("c")
        canvas.drag((-100, -50), (0, 0), (100, 70))
        desktop.press_keys("Return")
        wait_changed(window)
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        width, height, _ = pixels(picture)
        assert (width, height) == (201, 121), "the frame's both ends belong to it"

        expected = temporary("turned.png")
        orvane("LoadImage", picture, "RotateFlip", 1, "-o", expected)
        desktop.press_keys("ctrl+Right")
        wait_changed(window)
        desktop.press_keys("ctrl+s")
        wait_changed(window, False)
        assert difference(pixels(picture), pixels(expected)) == 0
        studio.assert_silent()


def menus_give_the_keyboard_back():
    picture = new_picture(temporary("menus.png"))
    with Studio(picture) as studio:
        window = studio.window("menus.png")
        desktop.press_keys("r")
        drag(Canvas(window))
        desktop.press_keys("alt+v")
        time.sleep(0.3)  # the menu opens with a movement
        desktop.press_keys("i")
        desktop.wait_until(lambda: "100 %" not in window.texts(), "the menu's zoom")
        time.sleep(0.3)
        desktop.press_keys("Return")
        wait_changed(window)
        studio.assert_silent()


if __name__ == "__main__":
    run_tests(
        draw_with_every_tool,
        drop_what_is_placed,
        text_and_stamp,
        fill_with_a_texture,
        crop_rotate_and_select,
        turn_and_mend_an_eye,
        look_around_and_measure,
        menus_give_the_keyboard_back,
    )
