#!/usr/bin/env python3
"""The stripped libraries are as small as docs/device-vendors.md says.

usage: sizes_test.py DOCUMENT MACHINE STRIP LIBRARY...

MACHINE is a row of the table, the libraries are in the order of its columns.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

DOCUMENT, MACHINE, STRIP, *LIBRARIES = sys.argv[1:]
KIB = 1024


def limits():
    """The bytes that each library may have on this machine."""
    row = re.search(rf"^\| {MACHINE}(?: \([^|]*\))? \|((?: \d+ \|)+)",
                    pathlib.Path(DOCUMENT).read_text(), re.MULTILINE)
    return [int(figure) * KIB for figure in re.findall(r"\d+", row[1])][:len(LIBRARIES)]


class Sizes(unittest.TestCase):
    def test_no_library_is_larger_than_stated_or_much_smaller(self):
        self.assertTrue(LIBRARIES)
        with tempfile.TemporaryDirectory() as folder:
            for library, limit in zip(LIBRARIES, limits(), strict=True):
                stripped = pathlib.Path(folder) / "library"
                subprocess.run([STRIP, "-o", stripped, library], check=True)
                size = stripped.stat().st_size
                self.assertLessEqual(size, limit, library)
                self.assertGreater(size, limit * 0.95, library)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
