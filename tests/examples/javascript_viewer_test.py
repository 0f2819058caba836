"""examples/javascript: the keys filter the picture, and the title tells the pixel under the mouse."""

import shutil
import tempfile
import unittest
from pathlib import Path

from program import EXAMPLES, Picture, Program, orvane, wait_for

GREEN = (0, 200, 120)


class Viewer(unittest.TestCase):
    def test_filters_and_tells_the_position(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            flat, warm = folder / "flat.png", folder / "warm.png"
            orvane("BitmapBackColor=0x78c800", "NewImage", 120, 80, "-o", flat, "Temperature", 10, "-o", warm)
            with Program(folder, shutil.which("gjs"), EXAMPLES / "javascript/viewer.js", flat) as program:
                x, y = program.find_color(GREEN, (120, 80))
                program.move(0, 0)  # away from the picture
                program.key("ctrl+Up")
                program.expect(x, y, Picture(warm))
                wait_for(lambda: program.title() == "*flat.png", "a title with a star")
                program.key("ctrl+z")
                program.expect(x, y, Picture(flat))

                program.move(x + 30, y + 20)
                wait_for(lambda: program.title().endswith("flat.png (30, 20)"), "the position in the title")
                program.move(x - 20, y + 20)
                wait_for(lambda: program.title().endswith("flat.png"), "a title without position outside the picture")


unittest.main()
