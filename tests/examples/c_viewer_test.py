"""examples/c: opens a picture, draws with a tool of its list, and saves what the command line saves."""

import os
import tempfile
import unittest
from pathlib import Path

from program import Picture, Program, orvane, wait_for

GREEN = (0, 200, 120)


class Viewer(unittest.TestCase):
    def test_draws_and_saves(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            flat, lined, file = folder / "flat.png", folder / "lined.png", folder / "opened.png"
            orvane("BitmapBackColor=0x78c800", "NewImage", 120, 80, "-o", flat, "-o", file, "@view", folder / "view.png")
            left, top, _, _ = Picture(folder / "view.png").box_of(GREEN)
            orvane("LoadImage", flat, "PaintStatus=1", "@drag", left + 10, top + 10, left + 50, top + 30,
                   left + 100, top + 60, "@end", "Accept", "-o", lined)

            with Program(folder, os.environ["ORVANE_EXAMPLE_VIEWER"], file) as program:
                self.assertEqual(program.title(), "opened.png")
                x, y = program.find_color(GREEN, (120, 80))
                program.key("ctrl+1")  # the line
                program.drag((x + 10, y + 10), (x + 50, y + 30), (x + 100, y + 60))
                program.key("ctrl+d")
                wait_for(lambda: program.title() == "*opened.png", "a title with a star")
                program.expect(x, y, Picture(lined))
                self.assertEqual(Picture(file), Picture(flat), "nothing is written before it is saved")
                program.key("ctrl+s")
                wait_for(lambda: program.title() == "opened.png", "a title without star")
                self.assertEqual(Picture(file), Picture(lined))
                program.key("ctrl+z")
                program.expect(x, y, Picture(flat))


unittest.main()
