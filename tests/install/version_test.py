#!/usr/bin/env python3
"""The version of CMakeLists.txt is the one that texts name.

usage: version_test.py SOURCE_FOLDER VERSION
"""
import pathlib
import re
import subprocess
import sys
import unittest

SOURCE, VERSION = pathlib.Path(sys.argv[1]), sys.argv[2]


class Version(unittest.TestCase):
    def test_the_change_log_begins_with_it(self):
        headings = re.findall(r"^## (\S+) \(\d{4}-\d\d-\d\d\)$",
                              (SOURCE / "CHANGELOG.md").read_text(), re.MULTILINE)
        self.assertEqual(VERSION, headings[0])

    def test_the_pages_name_it(self):
        pages = list((SOURCE / "docs/man").glob("*.[13]"))
        self.assertGreaterEqual(len(pages), 3)
        for page in pages:
            title = re.search(r"^\.TH .*", page.read_text(), re.MULTILINE)[0]
            self.assertIn(f" {VERSION}\"", title, page.name)

    def test_debian_reads_the_change_log(self):
        text = subprocess.run(
            [SOURCE / "packaging/debian/changelog.py", SOURCE / "CHANGELOG.md", "A <a@b>"],
            check=True, capture_output=True, text=True).stdout
        self.assertRegex(text, rf"\Acim-client \({re.escape(VERSION)}\) unstable; ")
        self.assertRegex(text, r"\n -- A <a@b>  [A-Z][a-z]{2}, \d\d [A-Z][a-z]{2} \d{4} ")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
