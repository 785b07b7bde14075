"""Comments of a header as the text of manual pages."""
import re
import textwrap

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
            kept.append(re.sub(r"(?:#|@p )(\w+)", r"\1", line))
        else:
            if kept:
                flush()
            pending.append(line)
    flush()
    return "".join(written)


def tagged(lines):
    """What comes before the first @param, @tparam or @return, and then each with its text."""
    parts = [("", [])]
    for line in lines:
        pieces = re.split(r"(?=@(?:t?param|return)\b)", line)
        if pieces[0].strip() or not line:
            parts[-1][1].append(pieces[0].strip() if parts[-1][0] else pieces[0].rstrip())
        for piece in pieces[1:]:
            kind, rest = re.match(r"@(t?param|return)\s*(.*)", piece).groups()
            if kind != "return":
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


def wrapped(declaration):
    """The lines of a declaration."""
    # A break comes behind a comma only: no parameter is torn.
    whole = declaration.replace(" ", "\0").replace(",\0", ", ")
    lines = textwrap.wrap(whole, 76, subsequent_indent="    ", break_long_words=False,
                          break_on_hyphens=False)
    return [part.replace("\0", " ") for part in lines]


def header_line(name, version, source="cim_client.h"):
    return (f".\\\" Written by docs/man/make_pages.py from include/{source}.\n"
            f".TH {name.upper()} 3 \"\" \"cim-client {version}\" \"{MANUAL}\"\n")


def name_line(names, brief):
    return ".SH NAME\n" + textwrap.fill(", ".join(names), 90) + f" \\- {brief}\n"
