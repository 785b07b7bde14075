#!/usr/bin/env python3
"""Holds every #include of the project against the directions in which includes may point.

usage: include_directions.py ROOT     status 1 when one points another way
"""
import pathlib
import re
import sys

# Public headers, and the part of the project that each stands for.
PUBLIC_HEADERS = {"cim_client.h": "cim_client.h", "XMLParser.h": "XMLParser.h", "rtlog.h": "rtlog.h"}

# What each part may include besides itself and headers of the system.
ALLOWED = {
    "src/base": {"cim_client.h"},
    "src/model": {"cim_client.h", "src/base"},
    "src/writer": {"cim_client.h", "src/base", "src/model"},
    "src/reader": {"cim_client.h", "src/base", "src/model", "XMLParser.h"},
    "src/CIMC_SendRequest": {"cim_client.h", "src/base", "rtlog.h"},
    "src/operations": {"cim_client.h", "src/base", "src/model", "src/writer", "src/reader",
                       "src/CIMC_SendRequest"},
    "src/clientapi": {"cim_client.h", "src/base", "src/model", "rtlog.h"},
    "src/client": {"cim_client.h", "src/base", "src/model", "src/writer", "src/reader",
                   "src/operations", "src/clientapi"},
    "platform/xmlparser": {"XMLParser.h"},
    "platform/rtlog": {"rtlog.h"},
    "tools/cim-client": {"cim_client.h"},
    "tools/cim-sandbox": set(),
    "tools/cim-sandbox-local": {"tools/cim-sandbox"},
}


def include_folders(part):
    """Where the compiler looks for headers that a part names in quotes."""
    if part.startswith("src/"):
        return [pathlib.Path("src")]
    return [pathlib.Path(folder) for folder in (part, "tools/cim-sandbox")]


INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SOURCES = {".c", ".cpp", ".h", ".ll", ".yy"}


def part_of(path):
    """The part that a file belongs to, its path relative to the root; None for a new one."""
    return next((part for part in ALLOWED if path.is_relative_to(part)), None)


def target_of(root, path, part, quoted, name):
    """The part that an include reaches; None for the system; "?" when nothing is found."""
    if name in PUBLIC_HEADERS:
        return PUBLIC_HEADERS[name]
    for base in [path.parent, *include_folders(part)]:
        if (root / base / name).is_file():
            resolved = (root / base / name).resolve().relative_to(root.resolve())
            return part_of(resolved) or str(resolved.parent)
    if not quoted:
        return None
    # A header that the build makes, such as a grammar's, lies where its source does.
    made_from = root / include_folders(part)[0] / name
    if any(source.is_file() for source in (made_from.with_suffix(".yy"),
                                           made_from.with_suffix(".h.in"))):
        return part
    return "?"


def wrong_includes(root):
    """Yields (file, line number, text) for each include that points the wrong way."""
    for path in sorted(root.glob("src/**/*")) + sorted(root.glob("platform/**/*")) + sorted(
            root.glob("tools/**/*")):
        if path.suffix not in SOURCES or not path.is_file():
            continue
        relative = path.relative_to(root)
        part = part_of(relative)
        if part is None:
            yield relative, 1, "lies in a folder without a place among the directions"
            continue
        for number, line in enumerate(path.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            target = target_of(root, relative, part, match[1] == '"', match[2])
            if target == "?":
                yield relative, number, f"includes {match[2]}, which is not there"
            elif target is not None and target != part and target not in ALLOWED[part]:
                yield relative, number, f"includes {match[2]}: {part} may not reach {target}"


def main(root):
    wrong = list(wrong_includes(pathlib.Path(root)))
    for path, number, text in wrong:
        print(f"{path}:{number}: {text}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]) if len(sys.argv) == 2 else __doc__)
