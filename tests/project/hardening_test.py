#!/usr/bin/env python3
"""hardening.py finds each weakness: of a program built without it, and of that alone.

usage: hardening_test.py COMPILER...
"""
import contextlib
import io
import pathlib
import subprocess
import sys
import tempfile
import unittest

import hardening

COMPILERS = sys.argv[1:]
del sys.argv[1:]

PROGRAM = r"""
#include <string.h>
int main(int count, char** arguments) {
  char text[16];
  strcpy(text, arguments[count - 1]);
  return text[0] == 'x';
}
"""

HARD = ["-O2", "-U_FORTIFY_SOURCE", "-D_FORTIFY_SOURCE=2", "-fstack-protector-strong", "-fPIE",
        "-pie", "-Wl,-z,relro", "-Wl,-z,now", "-Wl,-z,noexecstack"]


class Hardening(unittest.TestCase):
    def complaints(self, *options):
        """What is said of the program, built with more options, by each compiler."""
        said = set()
        for compiler in COMPILERS:
            with tempfile.TemporaryDirectory() as folder:
                program = pathlib.Path(folder) / "program"
                subprocess.run([compiler, *HARD, *options, "-x", "c", "-", "-o", program],
                               input=PROGRAM, text=True, check=True, capture_output=True)
                said.add(tuple(hardening.complaints(program, checked_copies=True)))
        self.assertEqual(len(said), 1, said)
        return list(said.pop())

    def test_a_hard_program_is_not_complained_of(self):
        self.assertEqual(self.complaints(), [])

    def test_a_fixed_address(self):
        self.assertEqual(self.complaints("-fno-pie", "-no-pie"), ["has a fixed address"])

    def test_a_stack_that_runs(self):
        self.assertEqual(self.complaints("-Wl,-z,execstack"),
                         ["has a stack that runs: ['RWE']",
                          "has a part that is both writable and executable"])

    def test_tables_that_stay_writable(self):
        self.assertEqual(self.complaints("-Wl,-z,norelro"),
                         ["has no tables that become read-only"])

    def test_tables_that_are_filled_later(self):
        self.assertEqual(self.complaints("-Wl,-z,lazy"),
                         ["fills its tables later than at the start"])

    def test_an_unwatched_stack(self):
        self.assertEqual(self.complaints("-fno-stack-protector"), ["does not watch its stack"])

    def test_unchecked_copies(self):
        self.assertEqual(self.complaints("-U_FORTIFY_SOURCE"), ["has no checked copies"])

    def test_the_status_says_whether_anything_was_found(self):
        with tempfile.TemporaryDirectory() as folder:
            program = pathlib.Path(folder) / "program"
            for options, status in (HARD, 0), ([], 1):
                subprocess.run([COMPILERS[0], *options, "-x", "c", "-", "-o", program],
                               input=PROGRAM, text=True, check=True)
                with contextlib.redirect_stdout(io.StringIO()):
                    self.assertEqual(hardening.main("--checked-copies", str(program)), status)


if __name__ == "__main__":
    unittest.main()
