#!/usr/bin/env python3
"""Checks that every record of the public header stands in the layout tables, field for field.

usage: layout_covers_header.py HEADER TABLE...
"""
import pathlib
import re
import sys


def records_of(header):
    """Each struct that the header defines, with the number of its fields."""
    text = re.sub(r"/\*.*?\*/", "", header, flags=re.DOTALL)
    return {name: fields.count(";")
            for name, fields in re.findall(r"struct (\w+) \{(.*?)\};", text, re.DOTALL)}


def main(header, *tables):
    records = records_of(pathlib.Path(header).read_text())
    records["Handle"] = records.pop("client_Configuration")  # the tables' name for it
    text = "".join(pathlib.Path(table).read_text() for table in tables)
    listed = {name: len(re.findall(rf"^FIELD\({name},", text, re.MULTILINE))
              for name in re.findall(r"^RECORD\((\w+),", text, re.MULTILINE)}
    for name in sorted(records.keys() | listed.keys()):
        if records.get(name) != listed.get(name):
            print(f"{name}: {records.get(name)} fields in the header, {listed.get(name)} listed")
    return 0 if records == listed else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) > 2 else __doc__)
