#!/usr/bin/env python3
"""Writes the manual pages of section 3: from the public C header one per family of functions, one
for the records and one for the whole, and one from the C++ header beside it.

usage: make_pages.py HEADER VERSION FOLDER            write the pages
       make_pages.py HEADER VERSION FOLDER --check    status 1 when they are not as written

A family is what stands between @defgroup and the @} that ends it.
"""
import pathlib
import re
import sys

import cxx_page
from roff import (described, header_line, name_line, paragraphs, roff, uncommented, verbatim,
                  wrapped)

GROUP = re.compile(r"/\*\* @defgroup (\w+)_family ([^\n]+)\n(.*?)@\{ \*/\n(.*?)/\*\* @\} \*/",
                   re.DOTALL)
ITEM = re.compile(r"(?:/\*\*((?:(?!\*/).)*)\*/\s*)?"
                  r"((?:extern )?CIM_API [^;{]*;|struct \w+;|struct \w+ \{[^}]*\};)"
                  r"(?: /\*\*<([^*]*)\*/)?", re.DOTALL)
RECORD = re.compile(r"/\*\*((?:(?!\*/).)*)\*/\n(struct (\w+) \{\n.*?\n\};)", re.DOTALL)


def declared_names(declaration):
    """The names that a declaration gives the library."""
    if declaration.startswith("struct"):
        return [re.match(r"struct (\w+)", declaration)[1]]
    return re.findall(r"(\w+)(?:\(|\[|;)", declaration)[:1]


def bare(declaration):
    """A declaration without the marks for compilers, one line or wrapped."""
    line = re.sub(r"\bCIM_API |\s*CIM_PRINTF\(\d, \d\)", "", " ".join(declaration.split()))
    return wrapped(line)


def synopsis(declarations):
    lines = ["#include <cim_client.h>", ""]
    for declaration in declarations:
        lines += bare(declaration)
    return ".SH SYNOPSIS\n" + verbatim(lines)


def family_page(page, version, title, intro, body):
    items = [(comment or aside or "", declaration) for comment, declaration, aside
             in ITEM.findall(body)]
    exported = [(comment, declaration) for comment, declaration in items
                if "CIM_API" in declaration]
    names = [name for _, declaration in exported for name in declared_names(declaration)]
    text = header_line(page, version) + name_line(names, title[0].lower() + title[1:])
    text += synopsis([declaration for _, declaration in exported]) + ".SH DESCRIPTION\n"
    text += paragraphs(uncommented(intro))
    for comment, declaration in items:
        if not comment or not declared_names(declaration):
            continue
        kind = "()" if "(" in declaration else ""
        text += f".SS {declared_names(declaration)[0]}{kind}\n" + described(comment)
        if "{" in declaration:
            text += struct_lines(declaration)
    return text + see_also(page)


def struct_lines(struct):
    return ".PP\n" + verbatim(struct.replace("/**<", "/*").replace("@c ", "").splitlines())


def records_page(header, version):
    text = header_line("cim_client_records", version)
    text += name_line(["cim_client_records"], "records of CIM\\-XML elements")
    text += ".SH SYNOPSIS\n" + verbatim(["#include <cim_client.h>"])
    text += ".SH DESCRIPTION\n"
    text += paragraphs(["Plain structs, zero-filled when made. A null pointer or a 0 means absent.",
                        "A record owns what its fields point to, unless the field says borrowed."])
    fields = header.replace("CIM_FIELD_CLASS", "class").replace("CIM_FIELD_NAMESPACE", "namespace")
    for comment, struct, name in RECORD.findall(fields):
        if name == "StackEntry":
            continue
        text += f".SS {name}\n" + described(comment)
        text += struct_lines(struct)
    return text + see_also("cim_client_records")


def whole_page(header, version, groups):
    comment = re.search(r"/\*\*\n( \* @file.*?)\*/", header, re.DOTALL)[1]
    lines = [re.sub(r"^@(file|brief)\s*", "", line) for line in uncommented(comment)][2:]
    text = header_line("cim_client", version)
    text += name_line(["cim_client"], "client library for the operations of CIM object managers")
    text += ".SH SYNOPSIS\n" + verbatim(["#include <cim_client.h>", "",
                                         "cc program.c -lCIM-Client"])
    text += ".SH DESCRIPTION\n" + paragraphs(lines) + ".SH PAGES\n"
    for page, title in [*groups, ("cim_client_records", "Records of CIM-XML elements"),
                        (cxx_page.PAGE, cxx_page.BRIEF)]:
        text += f".TP\n.BR {page} (3)\n{roff(title)}\n"
    return text + ".SH SEE ALSO\n.BR cim-client (1),\n.BR cim-sandbox (1)\n"


def see_also(page):
    others = ["cim_client"] + (["cim_client_records"] if page != "cim_client_records" else [])
    return ".SH SEE ALSO\n" + ",\n".join(f".BR {name} (3)" for name in others) + "\n"


def pages(path, version):
    """The text of each page, by file name."""
    header, cxx_header = path.read_text(), path.with_suffix(".hpp").read_text()
    groups = GROUP.findall(header)
    titles = [(f"cim_client_{name}", title) for name, title, _, _ in groups]
    made = {f"{page}.3": family_page(page, version, title, intro, body)
            for (page, title), (_, _, intro, body) in zip(titles, groups)}
    made["cim_client_records.3"] = records_page(header, version)
    made["cim_client.3"] = whole_page(header, version, titles)
    made[f"{cxx_page.PAGE}.3"] = cxx_page.page(cxx_header, version)
    return made


def main(header, version, folder, *options):
    made = pages(pathlib.Path(header), version)
    root = pathlib.Path(folder)
    if options != ("--check",):
        for name, text in made.items():
            (root / name).write_text(text)
        return 0
    there = {page.name: page.read_text() for page in root.glob("*.3")}
    wrong = sorted(name for name in made.keys() | there.keys() if made.get(name) != there.get(name))
    for name in wrong:
        print(f"{name} is not as the header says; write the pages anew: "
              f"{sys.argv[0]} {header} {version} {folder}")
    return 1 if wrong or not made else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) if len(sys.argv) in (4, 5) else __doc__)
