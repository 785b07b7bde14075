#!/usr/bin/env python3
"""Writes the manual pages of section 3 from the public C header, one per family of functions,
one for the records and one for the whole.

usage: make_pages.py HEADER VERSION FOLDER            write the pages
       make_pages.py HEADER VERSION FOLDER --check    status 1 when they are not as written

A family is what stands between @defgroup and the @} that ends it.
"""
import pathlib
import re
import sys
import textwrap

GROUP = re.compile(r"/\*\* @defgroup (\w+)_family ([^\n]+)\n(.*?)@\{ \*/\n(.*?)/\*\* @\} \*/",
                   re.DOTALL)
ITEM = re.compile(r"(?:/\*\*((?:(?!\*/).)*)\*/\s*)?"
                  r"((?:extern )?CIM_API [^;{]*;|struct \w+;|struct \w+ \{[^}]*\};)"
                  r"(?: /\*\*<([^*]*)\*/)?", re.DOTALL)
RECORD = re.compile(r"/\*\*((?:(?!\*/).)*)\*/\n(struct (\w+) \{\n.*?\n\};)", re.DOTALL)
MANUAL = "CIM client library"


def uncommented(comment):
    """The lines of a comment without the stars before them."""
    return [re.sub(r"^\s*\*(?: |$)", "", line).rstrip() for line in comment.strip().splitlines()]


def roff(text):
    """A text with its marks as those of a manual page."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    text = re.sub(r"@p (\*?\w+)", r"\\fI\1\\fP", text)
    text = re.sub(r"@c (\w+)", r"\\fB\1\\fP", text)
    text = re.sub(r"`(\w+)`", r"\\fB\1\\fP", text)
    text = re.sub(r"#(\w+)", r"\\fB\1\\fP", text)
    text = re.sub(r"\b([A-Za-z_]\w*)\(\)", r"\\fB\1\\fP()", text)
    return "\n".join("\\&" + line if line.startswith((".", "'")) else line
                     for line in text.splitlines())


def verbatim(lines):
    """Lines that keep their breaks."""
    code = "\n".join(lines).replace("\\", "\\e").replace("-", "\\-")
    return ".nf\n" + "\n".join("\\&" + line if line.startswith((".", "'")) else line
                               for line in code.splitlines()) + "\n.fi\n"


def paragraphs(lines):
    """Running text; indented lines are a table and keep their breaks."""
    written, pending, kept = [], [], []

    def flush():
        if pending:
            written.append(".PP\n" + roff("\n".join(pending)) + "\n")
            pending.clear()
        if kept:
            written.append(".PP\n" + verbatim(kept))
            kept.clear()

    for line in lines:
        if not line:
            flush()
        elif line.startswith("  "):
            if pending:
                flush()
            kept.append(re.sub(r"#(\w+)", r"\1", line))
        else:
            if kept:
                flush()
            pending.append(line)
    flush()
    return "".join(written)


def tagged(lines):
    """What comes before the first @param or @return, and then each of these with its text."""
    parts = [("", [])]
    for line in lines:
        pieces = re.split(r"(?=@(?:param|return)\b)", line)
        if pieces[0].strip() or not line:
            parts[-1][1].append(pieces[0].strip() if parts[-1][0] else pieces[0].rstrip())
        for piece in pieces[1:]:
            kind, rest = re.match(r"@(param|return)\s*(.*)", piece).groups()
            if kind == "param":
                name, rest = re.match(r"(\w+)\s*(.*)", rest).groups()
                parts.append((rf"\fI{name}\fP", [rest]))
            else:
                parts.append(("returns", [rest]))
    return parts


def described(comment):
    """A comment as part of a manual page."""
    parts = tagged(uncommented(comment))
    text = paragraphs(parts[0][1])
    for label, lines in parts[1:]:
        text += f".TP\n{label}\n" + roff("\n".join(line for line in lines if line)) + "\n"
    return text


def declared_names(declaration):
    """The names that a declaration gives the library."""
    if declaration.startswith("struct"):
        return [re.match(r"struct (\w+)", declaration)[1]]
    return re.findall(r"(\w+)(?:\(|\[|;)", declaration)[:1]


def bare(declaration):
    """A declaration without the marks for compilers, one line or wrapped."""
    line = re.sub(r"\bCIM_API |\s*CIM_PRINTF\(\d, \d\)", "", " ".join(declaration.split()))
    # A break comes behind a comma only: no parameter is torn.
    whole = line.replace(" ", "\0").replace(",\0", ", ")
    wrapped = textwrap.wrap(whole, 76, subsequent_indent="    ", break_long_words=False,
                            break_on_hyphens=False)
    return [part.replace("\0", " ") for part in wrapped]


def header_line(name, version):
    return (f".\\\" Written by docs/man/make_pages.py from include/cim_client.h.\n"
            f".TH {name.upper()} 3 \"\" \"cim-client {version}\" \"{MANUAL}\"\n")


def name_line(names, brief):
    return ".SH NAME\n" + textwrap.fill(", ".join(names), 90) + f" \\- {brief}\n"


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
    for page, title in [*groups, ("cim_client_records", "Records of CIM-XML elements")]:
        text += f".TP\n.BR {page} (3)\n{roff(title)}\n"
    return text + ".SH SEE ALSO\n.BR cim-client (1),\n.BR cim-sandbox (1)\n"


def see_also(page):
    others = ["cim_client"] + (["cim_client_records"] if page != "cim_client_records" else [])
    return ".SH SEE ALSO\n" + ",\n".join(f".BR {name} (3)" for name in others) + "\n"


def pages(header, version):
    """The text of each page, by file name."""
    groups = GROUP.findall(header)
    titles = [(f"cim_client_{name}", title) for name, title, _, _ in groups]
    made = {f"{page}.3": family_page(page, version, title, intro, body)
            for (page, title), (_, _, intro, body) in zip(titles, groups)}
    made["cim_client_records.3"] = records_page(header, version)
    made["cim_client.3"] = whole_page(header, version, titles)
    return made


def main(header, version, folder, *options):
    made = pages(pathlib.Path(header).read_text(), version)
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
