"""Who hears a key: the picture's commands or a field of the options bar."""

import time

import desktop
from desktop import Atspi
from studio import Canvas, Studio, new_picture, run_tests, temporary, title_of, wait_changed


def has_keyboard(node):
    return node.get_state_set().contains(Atspi.StateType.FOCUSED)


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
        assert not title_of(window).startswith("•"), "the picture was not turned"
        # Beside the field the same keys turn it, also where the palette could scroll.
        window.click("push button", "Hand")
        desktop.press_keys("ctrl+Down")
        wait_changed(window)
        studio.assert_silent()


if __name__ == "__main__":
    run_tests(text_field_keeps_its_keys)
