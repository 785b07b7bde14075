#!/usr/bin/env python3
"""Holds built libraries and programs against what makes them harder to exploit.

usage: hardening.py [--checked-copies] FILE...

Each must be loadable at any address, have a watched stack, tables that are filled at the start and
read-only afterwards, no data that runs, nothing that is both writable and executable, and no
relocations of its code. With --checked-copies each must call at least one checked function of libc.
"""
import re
import subprocess
import sys


def readelf(path, *options):
    return subprocess.run(["readelf", "--wide", *options, path],
                          check=True, capture_output=True, text=True).stdout


def segments(path):
    """The segments, as pairs of type and flags such as ("LOAD", "RW")."""
    found = re.findall(r"^  (\w+) +(?:0x[0-9a-f]+ +){5}([RWE ]{3}) 0x",
                       readelf(path, "--program-headers"), re.MULTILINE)
    return [(kind, flags.replace(" ", "")) for kind, flags in found]


def foreign_names(path):
    """The functions and data that come from other libraries."""
    return set(re.findall(r"UND (\w+)", readelf(path, "--dyn-syms")))


def complaints(path, checked_copies):
    if not re.search(r"Type: +DYN", readelf(path, "--file-header")):
        yield "has a fixed address"
    parts = segments(path)
    if not parts:
        yield "has no segments that this program can read"
    stacks = [flags for kind, flags in parts if kind == "GNU_STACK"]
    if stacks != ["RW"]:
        yield f"has a stack that runs: {stacks}"
    if not any(kind == "GNU_RELRO" for kind, _ in parts):
        yield "has no tables that become read-only"
    if any("W" in flags and "E" in flags for _, flags in parts):
        yield "has a part that is both writable and executable"
    dynamic = readelf(path, "--dynamic")
    if not re.search(r"BIND_NOW|FLAGS_1.*NOW", dynamic):
        yield "fills its tables later than at the start"
    if "TEXTREL" in dynamic:
        yield "has relocations in its code"
    names = foreign_names(path)
    if not any(name.startswith("__stack_chk_") for name in names):
        yield "does not watch its stack"
    if checked_copies and not any(re.fullmatch(r"__\w+_chk", name) for name in names):
        yield "has no checked copies"


def main(*arguments):
    checked_copies = "--checked-copies" in arguments
    found = 0
    for path in arguments:
        if path.startswith("--"):
            continue
        for complaint in complaints(path, checked_copies):
            print(f"{path}: {complaint}")
            found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if sys.argv[1:] else __doc__)
