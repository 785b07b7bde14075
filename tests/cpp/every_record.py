#!/usr/bin/env python3
"""The C++ header lists every record that the C header releases, and every one that it copies.

usage: every_record.py INCLUDE_FOLDER
"""
import pathlib
import re
import sys


def listed(text, name):
    """The records in one of the C++ header's lists."""
    body = re.search(rf"#define {name}\(X\)(.*?[^\\])\n", text, re.DOTALL)[1]
    return set(re.findall(r"X\((\w+)\)", body))


def main(folder):
    c_header = (pathlib.Path(folder) / "cim_client.h").read_text()
    cpp_header = (pathlib.Path(folder) / "cim_client.hpp").read_text()
    wanted = {
        "CIM_CLIENT_RECORDS": set(re.findall(r"\bFree_(\w+)\(\1 \*", c_header)),
        "CIM_CLIENT_COPIES": set(re.findall(r"\bClone_(\w+)\(const \1 \*", c_header)),
    }
    status = 0
    for name, records in wanted.items():
        difference = records ^ listed(cpp_header, name)
        if difference or len(records) < 20:
            print(f"{name}: {', '.join(sorted(difference))}")
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) == 2 else __doc__)
