#!/usr/bin/env python3
"""The branches of a folder's sources that were taken, each counted once in all the instances of
its template.

usage: branches.py EXPORT.json FOLDER [MINIMUM]

EXPORT.json comes from `llvm-cov export`.  Prints a line per source and the branches that were not
taken; the status is 1 below MINIMUM percent.  A condition has two branches: it holds, or not.
"""
import collections
import json
import pathlib
import sys


def branches(export, folder):
    """For each source, how often each of its branches was taken: by line, column and outcome."""
    sources = collections.defaultdict(collections.Counter)
    for file in export["data"][0]["files"]:
        path = pathlib.Path(file["filename"])
        if not path.is_relative_to(folder):
            continue
        taken = sources[str(path.relative_to(folder))]
        for line, column, end_line, end_column, held, failed, *_ in file["branches"]:
            place = (line, column, end_line, end_column)
            taken[place + (True,)] += held
            taken[place + (False,)] += failed
    return {name: taken for name, taken in sources.items() if taken}


def missed(taken):
    """The branches of one source that were never taken."""
    return sorted(branch for branch, count in taken.items() if count == 0)


def percent(part, whole):
    return 100.0 * part / whole if whole else 100.0


def report(sources, folder):
    """The lines that tell about each source, and how many branches of how many were taken."""
    lines, reached, all_branches = [], 0, 0
    for name, taken in sorted(sources.items()):
        absent = missed(taken)
        count = len(taken) - len(absent)
        reached, all_branches = reached + count, all_branches + len(taken)
        lines.append(f"{name:44} {count:4} of {len(taken):4}  {percent(count, len(taken)):5.1f} %")
        text = (folder / name).read_text().splitlines()
        for line, column, end_line, end_column, outcome in absent:
            end = end_column - 1 if end_line == line else None
            condition = text[line - 1][column - 1:end].strip()
            lines.append(f"    {line}: {condition}  never {'holds' if outcome else 'fails'}")
    return lines, reached, all_branches


def main(export, folder, minimum="0"):
    folder = pathlib.Path(folder).resolve()
    lines, reached, count = report(branches(json.loads(pathlib.Path(export).read_text()), folder),
                                   folder)
    print("\n".join(lines))
    print(f"branches: {percent(reached, count):.1f} % ({reached} of {count})")
    return 1 if not count or percent(reached, count) < float(minimum) else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) in (3, 4) else __doc__)
