#!/usr/bin/env python3
"""Checks that the pages in docs/makers keep up with the sources: a page lists the labels of its
maker's section in the order of the list, and names every tag of the maker's tables, as often as
they do.

Usage: maker_pages.py PROJECT_FOLDER"""

import re
import sys
from collections import Counter
from difflib import ndiff
from pathlib import Path

NO_MAKERS = {"exif", "gps"}
NO_SECTION = {"README", "closed"}
PAGE_OF = {"seiko": "seiko-epson"}
CONTAINERS = {"canon": ["ciff.cpp"], "sigma": ["x3f_properties.cpp"]}

# Tables end where a line begins with "};".
LABELS = re.compile(
    r'^constexpr (?:\w+Row\b[^=;]*\[\] = \{(.*?)^\};|wchar_t \w+Label\[\] = L"([^"]+)";)',
    re.M | re.S,
)
TAGS = re.compile(r"^constexpr (?:TagRow<\w+>|PropertyRow) \w+\[\] = \{(.*?)^\};", re.M | re.S)


def emitted_labels(text):
    for table, label in LABELS.findall(text):
        yield from [label] if label else re.findall(r'^\s*\{L"([^"]+)"', table, re.M)


def decoded_tags(text):
    """Tags as numbers, properties of X3F files as names."""
    for table in TAGS.findall(text):
        yield from re.findall(r'\{"?(0x[0-9A-F]{4}|[A-Z]\w+)"?,', table)


def shown_labels(page):
    """The first cells of the tables that have labels, without the marks of details."""
    is_listed = False
    for line in page.splitlines():
        cell = line.split("|")[1].strip() if line.startswith("|") else None
        if cell is None or cell == "Label":
            is_listed = cell == "Label"
        elif is_listed and set(cell) != {"-"}:
            yield re.sub(r"^↳\*? ", "", cell)


def check_maker(project, maker, page):
    labels = list(emitted_labels((project / f"src/text/{maker}_section.cpp").read_text("utf-8")))
    files = sorted((project / "src/makernote").glob(f"{maker}*.cpp"))
    files += [project / "src/parse/containers" / name for name in CONTAINERS.get(maker, [])]
    tags = Counter(tag for file in files for tag in decoded_tags(file.read_text("utf-8")))
    if not labels or not tags:
        yield f"no {'tags' if labels else 'labels'} found in the sources"
    for line in ndiff(labels, list(shown_labels(page))):
        if line[0] == "-":
            yield f"the label {line[2:]} is missing, or out of order"
        elif line[0] == "+":
            yield f"the label {line[2:]} is not emitted, or out of order"
    for tag in sorted(tags - Counter(re.findall(r"\b(?:0x[0-9A-F]{4}|[A-Z]\w+)\b", page))):
        yield f"{tag} is missing, or named less often than it is decoded"


def check_pages(project):
    folder = project / "docs/makers"
    pages = {file.stem: file.read_text("utf-8") for file in folder.glob("*.md")}
    sections = {
        file.stem.removesuffix("_section") for file in project.glob("src/text/*_section.cpp")
    }
    makers = {PAGE_OF.get(maker, maker): maker for maker in sections - NO_MAKERS}
    for name in sorted(makers.keys() | NO_SECTION | pages.keys()):
        if name not in pages:
            yield f"docs/makers/{name}.md: missing"
        elif name in makers:
            for fault in check_maker(project, makers[name], pages[name]):
                yield f"docs/makers/{name}.md: {fault}"
        elif name not in NO_SECTION:
            yield f"docs/makers/{name}.md: no such maker"
        if name != "README" and f"({name}.md)" not in pages.get("README", ""):
            yield f"docs/makers/README.md: no link to {name}.md"


def main():
    faults = list(check_pages(Path(sys.argv[1])))
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
