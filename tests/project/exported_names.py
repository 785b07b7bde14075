#!/usr/bin/env python3
"""Holds the names that a shared library exports against the checked-in list of them.

usage: exported_names.py LIBRARY LIST            compare; status 1 with a diff when they differ
       exported_names.py LIBRARY LIST --update   write the list anew
"""
import difflib
import pathlib
import subprocess
import sys

# Letters of nm(1) for defined dynamic symbols.
KINDS = {"T": "function", "W": "function", "i": "function",
         "B": "data", "D": "data", "R": "data", "V": "data"}


def exported(library):
    """The lines "name kind" of the library, sorted by name."""
    symbols = subprocess.run(["nm", "-D", "--defined-only", library],
                             check=True, capture_output=True, text=True).stdout
    names = set()
    for line in symbols.splitlines():
        _, letter, name = line.split()
        names.add((name, KINDS.get(letter, letter)))
    return [f"{name} {kind}\n" for name, kind in sorted(names)]


def main(library, list_file, *options):
    path = pathlib.Path(list_file)
    actual = exported(library)
    if options == ("--update",):
        path.write_text("".join(actual))
        return 0
    expected = path.read_text().splitlines(keepends=True)
    if not expected:
        print(f"{list_file} is empty")
        return 1
    difference = list(difflib.unified_diff(expected, actual, list_file, library))
    if not difference:
        return 0
    sys.stdout.writelines(difference)
    print("\nA name that goes breaks programs that are installed; a new one stays for good. When"
          f"\nthe change is meant, take it over: {sys.argv[0]} {library} {list_file} --update")
    return 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) in (3, 4) else __doc__)
