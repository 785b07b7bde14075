#!/usr/bin/env python3
"""The relative links of the project's Markdown pages lead to files and headings that exist.

usage: links.py PROJECT_FOLDER     status 1, with one line per broken link
"""
import pathlib
import re
import sys

FENCED = re.compile(r"^```.*?^```$", re.DOTALL | re.MULTILINE)
LINK = re.compile(r"(?<!!)\[[^\]]*\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ +(.*?)\s*$", re.MULTILINE)


def pages(folder):
    """The Markdown pages below a folder, without those in build folders."""
    return [page for page in sorted(folder.rglob("*.md"))
            if not any(part.startswith(("build", ".")) for part in page.relative_to(folder).parts)]


def anchors(text):
    """The anchors that the headings of a page have, as Git's web front ends make them."""
    found = set()
    for heading in HEADING.findall(FENCED.sub("", text)):
        plain = re.sub(r"[`*]|\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
        base = re.sub(r"[^\w\- ]", "", plain).replace(" ", "-")
        name, number = base, 0
        while name in found:
            number += 1
            name = f"{base}-{number}"
        found.add(name)
    return found


def broken_links(page):
    """The relative links of a page that lead nowhere."""
    for link in LINK.findall(FENCED.sub("", page.read_text())):
        if re.match(r"[a-z]+:", link):
            continue
        path, _, anchor = link.partition("#")
        target = page.parent / path if path else page
        if not target.exists():
            yield link
        elif anchor and target.suffix == ".md" and anchor not in anchors(target.read_text()):
            yield link


def main(folder):
    root = pathlib.Path(folder)
    broken = [f"{page.relative_to(root)}: {link}" for page in pages(root)
              for link in broken_links(page)]
    print("\n".join(broken))
    return 1 if broken or not pages(root) else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) == 2 else __doc__)
