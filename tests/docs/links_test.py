#!/usr/bin/env python3
"""What links.py finds, and what it leaves alone."""
import pathlib
import tempfile
import unittest

import links


class Links(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def broken(self, text):
        page = self.root / "page.md"
        page.write_text(text)
        return list(links.broken_links(page))

    def test_a_missing_file_is_found(self):
        self.assertEqual(["other.md"], self.broken("[x](other.md)"))

    def test_a_missing_heading_is_found(self):
        (self.root / "other.md").write_text("# Time-outs & `TLS`\n```\n# no heading\n```\n")
        self.assertEqual([], self.broken("[x](other.md#time-outs--tls)"))
        self.assertEqual(["other.md#no-heading"], self.broken("[x](other.md#no-heading)"))

    def test_a_heading_of_the_page_itself_is_found(self):
        self.assertEqual(["#b"], self.broken("# A\n[x](#a) [y](#b)"))

    def test_the_second_heading_of_a_name_has_a_number(self):
        self.assertEqual(["#a-2"], self.broken("# A\n# A\n[x](#a-1) [y](#a-2)"))

    def test_links_to_other_hosts_and_in_code_are_left_alone(self):
        self.assertEqual([], self.broken("[x](https://host/y)\n```\n[x](nowhere)\n```\n"))

    def test_pages_in_build_folders_are_passed_over(self):
        (self.root / "build").mkdir()
        (self.root / "build/page.md").write_text("x")
        self.assertEqual([], links.pages(self.root))


if __name__ == "__main__":
    unittest.main()
