#!/usr/bin/env python3
"""What docs/device-vendors.md says about stack and heap holds.

usage: footprint_test.py FOOTPRINT CIM_SANDBOX DOCUMENT
"""
import pathlib
import re
import subprocess
import sys
import unittest

from sandbox import sandbox

FOOTPRINT, SANDBOX, DOCUMENT = sys.argv[1:4]
KIB = 1024


def stated():
    """The table's figures: for each operation the bytes of stack, of heap, and of its result."""
    rows = re.findall(r"^\| `(\w+)` \| (\d+) \| (\d+) \| (\d+) \|$",
                      pathlib.Path(DOCUMENT).read_text(), re.MULTILINE)
    return {name: [int(figure) * KIB for figure in figures] for name, *figures in rows}


def measured():
    with sandbox(SANDBOX) as port:
        lines = subprocess.run([FOOTPRINT, str(port)], check=True, capture_output=True, text=True,
                               timeout=60).stdout.splitlines()
    return {name: [int(figure) for figure in figures]
            for name, *figures in (line.split() for line in lines)}


class Footprint(unittest.TestCase):
    def test_no_operation_needs_more_than_is_stated_or_less_than_half(self):
        table, figures = stated(), measured()
        self.assertEqual(table.keys(), figures.keys())
        for name, row in table.items():
            for limit, actual in zip(row, figures[name]):
                self.assertLessEqual(actual, limit, name)
                self.assertGreater(actual, limit / 2, name)

    def test_nothing_is_left_when_a_result_has_been_released(self):
        self.assertEqual({0}, {left for *_, left in measured().values()})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
