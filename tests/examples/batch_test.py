"""examples/python/batch.py gives the very pixels of the command line program, and tells of what it cannot read."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from program import EXAMPLES, Picture, orvane


def batch(*arguments, **more):
    return subprocess.run([sys.executable, EXAMPLES / "python/batch.py", *map(str, arguments)],
                          capture_output=True, text=True, **more)


class Batch(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.pictures = [self.folder / "day.png", self.folder / "night.bmp"]
        for path, noise in zip(self.pictures, (40, 90)):
            orvane("BitmapBackColor=0x406080", "NewImage", 61, 43, "Noise", 1, noise, "-o", path)

    def test_pixels_are_those_of_the_command_line(self):
        for method, member, numbers in (("temperature", "Temperature", ["12"]),
                                        ("gaussian_blur", "GaussianBlur", ["3", "2"]),
                                        ("gamma", "Gamma", ["0.8"]), ("sepia", "Sepia", [])):
            with self.subTest(method):
                out = self.folder / method
                result = batch(out, method, *numbers, "--", *self.pictures)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                for source in self.pictures:
                    expected = self.folder / "expected.png"
                    orvane("LoadImage", source, member, *numbers, "-o", expected)
                    made = Picture(out / (source.stem + ".png"))
                    self.assertEqual(made, Picture(expected), source.name)
                    self.assertNotEqual(made, Picture(source), "the filter must do something")

    def test_the_others_are_done_when_one_is_no_picture(self):
        broken = self.folder / "broken.jpg"
        broken.write_text("not a picture")
        result = batch(self.folder / "out", "invert", "--", broken, *self.pictures)
        self.assertEqual(result.returncode, 1)
        self.assertIn("broken.jpg: no picture", result.stderr)
        self.assertEqual(sorted(path.name for path in (self.folder / "out").iterdir()), ["day.png", "night.png"])

    def test_says_what_is_missing(self):
        no_filter = batch(self.folder, "sharpness", "--", *self.pictures)
        self.assertEqual((no_filter.returncode, no_filter.stderr), (2, "There is no filter sharpness.\n"))
        elsewhere = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "G_DEBUG")}
        no_display = batch(self.folder, "sepia", "--", *self.pictures, env=elsewhere)
        self.assertEqual(no_display.returncode, 2)
        self.assertIn("xvfb-run", no_display.stderr)


unittest.main()
