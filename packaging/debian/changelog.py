#!/usr/bin/env python3
"""Prints the released versions of CHANGELOG.md in the format of deb-changelog(5).

usage: changelog.py CHANGELOG MAINTAINER
"""
import datetime
import pathlib
import re
import sys
import textwrap

HEADING = re.compile(r"^## (?P<version>\d+\.\d+\.\d+) \((?P<date>\d{4}-\d{2}-\d{2})\)\n"
                     r"(?P<body>.*?)(?=^## |\Z)", re.DOTALL | re.MULTILINE)


def entries(text):
    """The items of a section: paragraphs of a line each, without their mark."""
    for item in re.split(r"^- ", text, flags=re.MULTILINE)[1:]:
        yield " ".join(item.split("\n\n")[0].split()).replace("`", "")


def main(path, maintainer):
    releases = list(HEADING.finditer(pathlib.Path(path).read_text()))
    if not releases:
        sys.exit(f"{path}: no released version")
    for release in releases:
        print(f"cim-client ({release['version']}) unstable; urgency=medium\n")
        for entry in entries(release["body"]):
            print(textwrap.fill(entry, 78, initial_indent="  * ", subsequent_indent="    "))
        day = datetime.datetime.fromisoformat(release["date"])
        print(f"\n -- {maintainer}  {day:%a, %d %b %Y} 12:00:00 +0000\n")


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) == 3 else __doc__)
