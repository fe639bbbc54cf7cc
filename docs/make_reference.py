#!/usr/bin/env python3
"""Writes the API reference from the comments of the public header.

    make_reference.py HEADER PAGE            writes the page
    make_reference.py --check HEADER PAGE    fails when the page is not what it would write
"""

import re
import sys

COMMENT = re.compile(r"/\*(.*?)\*/", re.S)
RECORD = re.compile(r"/\*((?:(?!\*/).)*)\*/\s*typedef struct InfoRequest \{(.*?)\} InfoRequest;", re.S)
FIELD = re.compile(r"^ *([\w ]+?\**) (\w+)(?:\[(\d+)\])?; */\*(.*?)\*/", re.M | re.S)
OFFSET = re.compile(r"QMXEXIF_CHECK_OFFSET\((\w+), (\d+)\);")
CALLBACK = re.compile(r"/\*((?:(?!\*/).)*)\*/\s*typedef (INT_PTR\(CALLBACK[^;]*;)", re.S)
FUNCTION = re.compile(r"/\*((?:(?!\*/).)*)\*/\s*(UINT32 WINAPI (\w+)\([^;]*\);)", re.S)
CONSTANT = re.compile(r"^#define (QMXEXIF_\w+) (\S+) *(?:/\*(.*?)\*/)?$", re.M)
ARGUMENT = re.compile(r"^  (\w+)  +(\S.*)$")


def comment_lines(comment):
    """The lines of a comment without its decoration; what is indented keeps its indentation."""
    return [re.sub(r"^ ?\*? ?", "", line, count=1).rstrip() for line in comment.strip().split("\n")]


def one_line(comment):
    return " ".join(" ".join(comment_lines(comment)).split())


def prose(comment):
    """Paragraphs, and a list where the comment explains arguments."""
    out, paragraph, items = [], [], []

    def flush():
        if paragraph:
            out.append(" ".join(" ".join(paragraph).split()))
            paragraph.clear()
        if items:
            out.append("\n".join(items))
            items.clear()

    for line in comment_lines(comment):
        argument = ARGUMENT.match(line)
        if argument:
            if paragraph:
                flush()
            items.append(f"- `{argument[1]}`: " + " ".join(argument[2].split()))
        elif line.startswith("   ") and items:
            items[-1] += " " + " ".join(line.split())
        elif line.lstrip().startswith("- "):
            if paragraph:
                flush()
            items.append(" ".join(line.split()))
        elif not line:
            flush()
        else:
            if items:
                flush()
            paragraph.append(line.strip())
    flush()
    return "\n\n".join(out)


def declaration(text):
    return "```c\n" + " ".join(text.split()) + "\n```"


def cell(text):
    return text.replace("|", "\\|")


def reference(header):
    head = COMMENT.search(header)[1].replace("qmxexif.h - the", "The", 1)
    offsets = dict(OFFSET.findall(header))
    parts = [
        "# Reference",
        "Made from the comments of `include/qmxexif.h` by `docs/make_reference.py`.",
        prose(head),
        "## Functions",
        "\n".join(f"- [`{name}`](#{name.lower()})" for _, _, name in FUNCTION.findall(header)),
    ]
    for comment, signature, name in FUNCTION.findall(header):
        parts += [f"### {name}", declaration(signature), prose(comment)]
    comment, signature = CALLBACK.search(header).groups()
    parts += ["### ExifEnumCallback", declaration("typedef " + signature), prose(comment)]
    comment, body = RECORD.search(header).groups()
    rows = ["| Offset | Type | Field | Meaning |", "|---|---|---|---|"]
    for kind, name, count, meaning in FIELD.findall(body):
        kind += f"[{count}]" if count else ""
        rows.append(f"| {offsets.pop(name)} | `{kind}` | `{name}` | {cell(one_line(meaning))} |")
    if offsets:
        sys.exit("fields that the page does not show: " + ", ".join(offsets))
    parts += ["## The record InfoRequest", prose(comment), "\n".join(rows)]
    rows = ["| Constant | Value | Meaning |", "|---|---|---|"]
    for name, value, meaning in CONSTANT.findall(header):
        rows.append(f"| `{name}` | `{value}` | {cell(one_line(meaning))} |")
    parts += ["## Constants", "\n".join(rows)]
    return "\n\n".join(parts) + "\n"


def main():
    arguments = sys.argv[1:]
    check = arguments[:1] == ["--check"]
    header_path, page_path = arguments[check:]
    with open(header_path, encoding="utf-8") as header:
        page = reference(header.read())
    if not check:
        with open(page_path, "w", encoding="utf-8", newline="\n") as out:
            out.write(page)
        return
    with open(page_path, encoding="utf-8") as stored:
        if stored.read() != page:
            sys.exit(f"{page_path} is old: run docs/make_reference.py {header_path} {page_path}")


if __name__ == "__main__":
    main()
