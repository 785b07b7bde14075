"""The manual page of the C++ header: its sections, with each type and function that is described
in it, and the members of each type."""
import re

from roff import described, header_line, name_line, paragraphs, roff, uncommented, verbatim, wrapped

PAGE = "cim_client.hpp"
BRIEF = "Owners, ranges, results and typed values for C++ programs"
HIDDEN = re.compile(r"/\*\* @cond\b.*?/\*\* @endcond \*/\n", re.DOTALL)
PRIVATE = re.compile(r"^ private:\n.*?^};", re.DOTALL | re.MULTILINE)
SECTION = re.compile(r"^/\* -{4} (.+?) -+ \*/\n", re.MULTILINE)
ITEM = re.compile(r"^( *)/\*\*(?!<)((?:(?!\*/).)*)\*/\n", re.DOTALL | re.MULTILINE)
OPENING, CLOSING = "([", ")]"


def head(code):
    """A declaration without what is behind it: its body, its initialisers, its semicolon."""
    depth, end = 0, len(code)
    for at, character in enumerate(code):
        depth += (character in OPENING) - (character in CLOSING)
        starts_initialisers = code.startswith(" : ", at) or code.startswith("\n      : ", at)
        if depth == 0 and (character in "{;" or starts_initialisers):
            end = at
            break
    return re.sub(r"&noexcept", "& noexcept", " ".join(code[:end].split()))


def name_of(declaration):
    """What a declaration declares."""
    plain = re.sub(r"^template <(?:[^<>]|<[^<>]*>)*> ", "", declaration)
    if plain.startswith(("using ", "struct ", "class ", "enum ")):
        named = re.sub(r"\[\[\w+\]\] |^using |^struct |^enum class |^class ", "", plain)
        return re.match(r"\w+", named)[0]
    operator = re.search(r"operator\s*(?:\(\)|\S+?(?=\()|bool)", plain)
    if operator:
        return operator[0]
    return re.findall(r"[~\w]+", plain.split("(")[0].split(" = ")[0])[-1]


def body_of(code):
    """The lines of a plain type, whose members describe themselves; none of other types."""
    whole = re.match(r"((?:enum class|struct) [^{;]*\{\n.*?^\};)", code, re.DOTALL | re.MULTILINE)
    if not whole or not re.search(r"/\*\*<", whole[1]) or ITEM.search(whole[1]):
        return []
    return whole[1].replace("/**<", "/*").splitlines()


def items(text):
    """Each description with its depth, and the code behind it."""
    found = list(ITEM.finditer(text))
    ends = [item.start() for item in found[1:]] + [len(text)]
    return [(len(item[1]), item[2], text[item.end():end]) for item, end in zip(found, ends)]


def section_text(text):
    written, last = "", None
    for indentation, comment, code in items(text):
        declaration = head(code)
        if indentation > 0:
            written += ".TP\n" + ".B " + roff(declaration) + "\n" + member(comment)
            continue
        name = name_of(declaration)
        if name != last:
            written += f".SS {roff(name)}\n"
        last = name
        written += ".PP\n" + verbatim(body_of(code) or wrapped(declaration)) + described(comment)
    return written


def member(comment):
    """A member's description as one paragraph."""
    text = " ".join(line for line in uncommented(comment) if line)
    text = re.sub(r"@return ", "returns ", text)
    return roff(text) + "\n"


def page(header, version):
    head_comment = re.search(r"/\*\*\n( \* @file.*?)\*/", header, re.DOTALL)[1]
    introduction = uncommented(head_comment)[2:]
    text = header_line(PAGE, version, "cim_client.hpp")
    text += name_line([PAGE], BRIEF[0].lower() + BRIEF[1:])
    text += ".SH SYNOPSIS\n" + verbatim(["#include <cim_client.hpp>", "",
                                         "c++ -std=c++17 program.cpp -lCIM-Client", "",
                                         "namespace cim_client"])
    text += ".SH DESCRIPTION\n" + paragraphs(introduction)
    shown = PRIVATE.sub("};", HIDDEN.sub("", header))
    parts = SECTION.split(shown)
    for title, body in zip(parts[1::2], parts[2::2]):
        text += f".SH {roff(title).upper()}\n" + section_text(body)
    return text + ".SH SEE ALSO\n.BR cim_client (3),\n.BR cim_client_records (3)\n"
