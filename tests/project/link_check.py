#!/usr/bin/env python3
"""Holds a shared library's soname and the libraries that it needs against what they must be.

usage: link_check.py LIBRARY SONAME NEEDED...

A name that ends in "?" may be needed: compilers differ in it. So may the dynamic linker itself.
Relocations of the code, which would keep processes from sharing it, are refused.
"""
import re
import subprocess
import sys


def dynamic_section(library):
    """The tags of the dynamic section, each with its list of values."""
    text = subprocess.run(["readelf", "--dynamic", "--wide", library],
                          check=True, capture_output=True, text=True).stdout
    tags = {}
    for tag, value in re.findall(r"^ 0x\S+ \((\w+)\)\s*(.*)$", text, re.MULTILINE):
        bracketed = re.search(r"\[(.*)\]", value)
        tags.setdefault(tag, []).append(bracketed.group(1) if bracketed else value)
    return tags


def complaints(tags, soname, needed):
    if tags.get("SONAME") != [soname]:
        yield f"soname is {tags.get('SONAME')}, not {soname}"
    actual = {name for name in tags.get("NEEDED", []) if not name.startswith("ld-linux")}
    for name in sorted(actual - {name.rstrip("?") for name in needed}):
        yield f"needs {name}"
    for name in sorted({name for name in needed if not name.endswith("?")} - actual):
        yield f"does not need {name}"
    if "TEXTREL" in tags or any("TEXTREL" in flags for flags in tags.get("FLAGS", [])):
        yield "has relocations in its code"


def main(library, soname, *needed):
    found = list(complaints(dynamic_section(library), soname, needed))
    for complaint in found:
        print(f"{library}: {complaint}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) > 3 else __doc__)
