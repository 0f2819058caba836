"""Who hears a key: the picture's commands or a field of the options bar."""

import time

import desktop
from desktop import Atspi
from studio import Canvas, Studio, new_picture, run_tests, temporary


def has_keyboard(node):
    return node.get_state_set().contains(Atspi.StateType.FOCUSED)


def can_undo(window):
    return window.find("push button", "Undo").get_state_set().contains(Atspi.StateType.SENSITIVE)


def text_of(window, role, name):
    node = window.find(role, name)
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def wait_text(window, role, name, text):
    desktop.wait_until(lambda: text_of(window, role, name) == text, f"{text!r} in {name!r}")


def wait_tool(window, name):
    desktop.wait_until(lambda: any(text.startswith(name + ": ") for text in window.texts()), f"the hint of {name}")


def text_field_keeps_its_keys():
    picture = new_picture(temporary("words.png"))
    with Studio(picture) as studio:
        window = studio.window("words.png")
        desktop.press_keys("t")
        wait_tool(window, "Text")
        desktop.type_text("two words")
        desktop.press_keys("ctrl+Left")
        desktop.type_text("more ")
        desktop.press_keys("ctrl+BackSpace", "ctrl+Right", "ctrl+Left")
        desktop.type_text("short ")
        wait_text(window, "text", "Text", "two short words")
        desktop.press_keys("ctrl+Down")
        time.sleep(0.3)
        assert not can_undo(window), "the picture was not turned"
        # Beside the field the same keys turn it, also where the palette could scroll.
        window.click("push button", "Hand")
        desktop.press_keys("ctrl+Down")
        desktop.wait_until(lambda: can_undo(window), "the turn")
        studio.assert_silent()


def begin_number(window, name, digits):
    """Types a number, which counts when it has been taken."""
    number = window.find("spin button", name)
    x, y, _, height = window.area(number)
    desktop.run("xdotool", "mousemove", str(x + 20), str(y + height // 2), "click", "1")
    desktop.wait_until(lambda: has_keyboard(number), f"the keyboard in {name}")
    desktop.press_keys("ctrl+a", digits)
    wait_text(window, "spin button", name, digits)


def press_while_running(window, field, key):
    """Presses a key at the picture while it is being saved, which the field waits for."""
    desktop.run("xdotool", "key", "ctrl+s", "sleep", "0.1", "key", key)
    assert not has_keyboard(field), "the field is out of use, and tells so at once"
    desktop.wait_until(lambda: has_keyboard(field), "the field to have the keyboard again")


def saving_gives_the_keyboard_back():
    picture = new_picture(temporary("large.png"), 6000, 4000)
    with Studio(picture) as studio:
        window = studio.window("large.png")
        desktop.press_keys("t")
        wait_tool(window, "Text")
        desktop.type_text("two words")
        desktop.press_keys("ctrl+Left")
        press_while_running(window, window.find("text", "Text"), "h")
        desktop.type_text("more ")
        wait_text(window, "text", "Text", "two more words")

        desktop.press_keys("Escape", "l")
        wait_tool(window, "Line")
        begin_number(window, "Pen width", "7")
        press_while_running(window, window.find("spin button", "Pen width"), "h")
        wait_text(window, "spin button", "Pen width", "7 px")
        wait_tool(window, "Line")
        studio.assert_silent()


def numbers_and_lists_leave_what_is_placed():
    picture = new_picture(temporary("placed.png"))
    with Studio(picture) as studio:
        window = studio.window("placed.png")
        desktop.press_keys("r")
        wait_tool(window, "Rectangle")
        Canvas(window).drag((-120, -80), (-40, -20), (60, 70))
        begin_number(window, "Pen width", "5")
        desktop.press_keys("Return")
        wait_text(window, "spin button", "Pen width", "5 px")
        begin_number(window, "Pen width", "7")
        desktop.press_keys("Escape")
        wait_text(window, "spin button", "Pen width", "5 px")
        window.click("combo box", "Fill")
        desktop.wait_until(lambda: window.all("label", "Hatch"), "the list of fills")
        desktop.press_keys("h", "Escape")
        time.sleep(0.3)  # lists close with a movement
        assert not can_undo(window), "nothing was drawn"
        wait_tool(window, "Rectangle")
        begin_number(window, "Pen width", "3")
        desktop.press_keys("Escape", "Return")
        desktop.wait_until(lambda: can_undo(window), "the rectangle to be drawn")
        studio.assert_silent()


if __name__ == "__main__":
    run_tests(
        text_field_keeps_its_keys,
        saving_gives_the_keyboard_back,
        numbers_and_lists_leave_what_is_placed,
    )
