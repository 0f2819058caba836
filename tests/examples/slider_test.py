"""examples/python/slider.py previews: each position of the slider starts from the picture as it was loaded."""

import sys
import tempfile
import unittest
from pathlib import Path

from program import EXAMPLES, Picture, Program, orvane

GREEN = (0, 200, 120)  # on the screen nowhere else


class Slider(unittest.TestCase):
    def test_shows_the_filter_of_its_position(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            orvane("BitmapBackColor=0x78c800", "NewImage", 120, 80, "-o", folder / "flat.png")
            with Program(folder, sys.executable, EXAMPLES / "python/slider.py", folder / "flat.png") as program:
                left, top = program.find_color(GREEN, (120, 80))
                for key, percent in (("End", 100), ("Home", -100), ("Right", -99)):
                    orvane("LoadImage", folder / "flat.png", "Temperature", percent, "-o", folder / "expected.png")
                    program.key(key)
                    program.expect(left, top, Picture(folder / "expected.png"))


unittest.main()
