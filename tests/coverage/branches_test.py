#!/usr/bin/env python3
"""What branches.py counts."""
import contextlib
import io
import json
import pathlib
import tempfile
import unittest

import branches


class Branches(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        (self.root / "src").mkdir()
        (self.root / "src/a.cpp").write_text("int f(int x) {\n  if (x > 1) return 2;\n}\n")

    def run_on(self, found, *minimum, name="src/a.cpp"):
        """Status and output for these branches of a source."""
        export = self.root / "export.json"
        export.write_text(json.dumps(
            {"data": [{"files": [{"filename": str(self.root / name), "branches": found}]}]}))
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            status = branches.main(export, self.root / "src", *minimum)
        return status, printed.getvalue()

    def test_a_condition_has_two_branches(self):
        self.assertIn("branches: 50.0 % (1 of 2)", self.run_on([[2, 7, 2, 12, 3, 0, 0, 0, 4]])[1])

    def test_a_branch_that_was_not_taken_is_named(self):
        self.assertIn("    2: x > 1  never fails\n", self.run_on([[2, 7, 2, 12, 3, 0, 0, 0, 4]])[1])
        self.assertIn("    2: x > 1  never holds\n", self.run_on([[2, 7, 2, 12, 0, 3, 0, 0, 4]])[1])

    def test_instances_of_a_template_count_once_together(self):
        self.assertIn("branches: 100.0 % (2 of 2)",
                      self.run_on([[2, 7, 2, 12, 3, 0, 0, 0, 4], [2, 7, 2, 12, 0, 1, 0, 0, 4]])[1])

    def test_below_the_minimum_it_fails(self):
        half = [[2, 7, 2, 12, 3, 0, 0, 0, 4]]
        self.assertEqual(0, self.run_on(half, "50")[0])
        self.assertEqual(1, self.run_on(half, "50.1")[0])

    def test_sources_elsewhere_do_not_count_and_none_at_all_fails(self):
        status, printed = self.run_on([[2, 7, 2, 12, 3, 0, 0, 0, 4]], name="tests/a.cpp")
        self.assertEqual(1, status)
        self.assertIn("(0 of 0)", printed)


if __name__ == "__main__":
    unittest.main()
