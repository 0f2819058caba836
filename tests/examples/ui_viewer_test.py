"""examples/ui: the control takes its properties from the description, and other widgets are bound to it."""

import sys
import tempfile
import unittest
from pathlib import Path

from program import EXAMPLES, Picture, Program, orvane, wait_for

GREEN, AROUND = (0, 200, 120), (0x20, 0x40, 0x60)
PEN = ("PenColor=0x00c0ff", "BrushStyle=4", "PaintStatus=11")


class Frames(unittest.TestCase):
    def expected(self, folder, width):
        """The picture with a frame, as the command line draws it."""
        orvane("LoadImage", folder / "flat.png", "ActialSize", *PEN, f"PenWidth={width}", "@view", folder / "view.png")
        x, y, _, _ = Picture(folder / "view.png").box_of(GREEN)
        orvane("LoadImage", folder / "flat.png", "ActialSize", *PEN, f"PenWidth={width}",
               "@drag", x + 20, y + 15, x + 60, y + 40, x + 90, y + 60, "@end", "Accept", "-o", folder / "expected.png")
        return Picture(folder / "expected.png")

    def test_frames_are_drawn_as_the_description_says(self):
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            orvane("BitmapBackColor=0x78c800", "NewImage", 120, 80, "-o", folder / "flat.png")
            with Program(folder, sys.executable, EXAMPLES / "ui/viewer.py", folder / "flat.png") as program:
                x, y = program.find_color(GREEN, (120, 80))
                self.assertIsNotNone(program.screen().box_of(AROUND), "the colour around the picture")
                frame = ((x + 20, y + 15), (x + 60, y + 40), (x + 90, y + 60))

                program.drag(*frame)
                program.key("alt+d")
                program.expect(x, y, self.expected(folder, 5))
                program.key("alt+u")
                program.expect(x, y, Picture(folder / "flat.png"))


unittest.main()
