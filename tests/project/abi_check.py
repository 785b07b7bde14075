#!/usr/bin/env python3
"""Holds a shared library's binary interface against the checked-in description of it.

usage: abi_check.py LIBRARY BASELINE HEADERS            compare, and try out that changes show
       abi_check.py LIBRARY BASELINE HEADERS --update   write the description anew

The library has debugging information; HEADERS is the folder of its public headers.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

LIBRARY, BASELINE, HEADERS = sys.argv[1:4]

ADVICE = f"""
What has been released stays as it is (docs/abi.md).  A new name is taken over with
{' '.join(sys.argv)} --update"""


def description():
    """What the library exports, and the records that its functions reach, as abidw writes it."""
    text = subprocess.run(
        ["abidw", "--exported-interfaces-only", "--drop-private-types", "--headers-dir", HEADERS,
         "--no-show-locs", "--no-corpus-path", "--no-comp-dir-path", LIBRARY],
        check=True, capture_output=True, text=True).stdout
    return re.sub(r" path='[^']*/(src/[^']*)'", r" path='\1'", text)


def difference(baseline):
    """What abidiff says about the library as the successor of a description; "" for no change."""
    result = subprocess.run(
        ["abidiff", "--no-show-locs", "--leaf-changes-only", "--exported-interfaces-only",
         str(baseline), LIBRARY], capture_output=True, text=True, timeout=300)
    if result.returncode == 0:
        return ""
    return result.stdout + result.stderr + f"abidiff: status {result.returncode}\n"


class BinaryInterface(unittest.TestCase):
    def changed(self, old, new):
        """The difference when the description said `new` in the one place where it says `old`."""
        text, count = re.subn(old, new, pathlib.Path(BASELINE).read_text(), flags=re.DOTALL)
        self.assertEqual(1, count)
        with tempfile.TemporaryDirectory() as folder:
            changed = pathlib.Path(folder) / "changed.abi"
            changed.write_text(text)
            return difference(changed)

    def test_it_is_the_one_described(self):
        self.assertEqual("", difference(BASELINE), ADVICE)

    def test_a_field_that_has_grown_would_show(self):
        self.assertIn("KeyValue", self.changed(
            r"(<class-decl name='KeyValue' size-in-bits=')192('.*?layout-offset-in-bits=')128(')",
            r"\g<1>256\g<2>192\g<3>"))

    def test_a_name_that_has_gone_would_show(self):
        self.assertIn("Free_Former", self.changed(
            r"(    <elf-symbol name=')(Free_Value)('[^\n]*\n)", r"\1\2\3\1Free_Former\3"))

    def test_a_name_that_is_new_would_show(self):
        self.assertIn("Free_Value", self.changed(
            r"    <elf-symbol name='Free_Value'[^\n]*\n", ""))


def main():
    if sys.argv[4:] == ["--update"]:
        pathlib.Path(BASELINE).write_text(description())
    elif len(sys.argv) == 4:
        unittest.main(argv=sys.argv[:1])
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
