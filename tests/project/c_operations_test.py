#!/usr/bin/env python3
"""The C program that goes through the operations finds all as it should be.

usage: c_operations_test.py C_OPERATIONS CIM_SANDBOX
"""
import subprocess
import sys
import unittest

from sandbox import sandbox

PROGRAM, SANDBOX = sys.argv[1:3]


class Operations(unittest.TestCase):
    def test_all_statements_hold(self):
        with sandbox(SANDBOX) as port:
            run = subprocess.run([PROGRAM, str(port)], capture_output=True, text=True, timeout=60)
        self.assertEqual((0, ""), (run.returncode, run.stderr), run.stdout)
        held, tried = run.stdout.splitlines()[-1].split(" of ")
        self.assertEqual(held, tried)
        self.assertGreater(int(tried), 40)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
