#!/usr/bin/env python3
"""Checks the rules that keep the house in order: which folder may include which, where the
system's headers enter, and that code which reads bytes holds no words in Japanese and owns no
memory: a read that fails leaves it without running destructors.

Usage: source_rules.py PROJECT_FOLDER"""

import re
import sys
from pathlib import Path

# What each folder of src/ may include, besides itself.  Includes run one way, downwards.
CORE = {"parse/core"}
MAKERNOTE = CORE | {"makernote"}
DIRECTORIES = MAKERNOTE | {"parse/directories"}
CONTAINERS = DIRECTORIES | {"parse/containers"}
TEXT = {"text"}
ALLOWED = {
    "parse/core": CORE,
    "makernote": MAKERNOTE,
    "parse/directories": DIRECTORIES,
    "parse/containers": CONTAINERS,
    "text": TEXT,
    "rawdev": CORE | TEXT | {"rawdev"},
    "api": CONTAINERS | TEXT | {"rawdev", "api"},
    "com": CONTAINERS | TEXT | {"rawdev", "api", "com"},
}

# Text reads records and never bytes: of the folders below it sees the records' headers only.
TEXT_MAY_READ = re.compile(
    r"parse/core/(image_info|numeric|record_of|win32)\.h|makernote/(\w+_fields|maker_record|model_identity)\.h"
)

# The only files through which the system's headers enter.
SYSTEM_HEADERS = {"windows.h", "objidl.h"}
SYSTEM_DOORS = {"src/parse/core/win32.h", "include/qmxexif.h"}

# Code that reads bytes leaves what it allocates to the record of its caller.
READING_ROOMS = ("parse/", "makernote/", "rawdev/")
OWNERS = re.compile(
    r"\bstd::(vector|w?string|deque|list|map|set|unordered_\w+|function|any|unique_ptr|shared_ptr"
    r"|make_unique|make_shared|lock_guard|unique_lock)\b"
)
# The records themselves, and what runs before a file is mapped.
MAY_OWN = {"rawdev/scratch_pool.h", "parse/core/mapped_file.cpp"}

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
# Comments, and literals; a comment mark within a literal does not open a comment.
TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', re.DOTALL
)


def room_of(path):
    """The room that a path relative to src/ lies in, or None."""
    return next((room for room in ALLOWED if path.startswith(room + "/")), None)


def check_includes(name, path, text):
    room = room_of(path)
    for kind, target in INCLUDE.findall(text):
        if kind == "<":
            if target in SYSTEM_HEADERS and name not in SYSTEM_DOORS:
                yield f"{name}: includes <{target}>, which enters through parse/core/win32.h"
            continue
        target_room = room_of(target)
        if target_room is None:
            yield f"{name}: {target} is not a path from src/"
        elif target_room not in ALLOWED[room] and not (
            room in ("text", "rawdev") and TEXT_MAY_READ.fullmatch(target)
        ):
            yield f"{name}: {room} may not include {target}"


def check_literals(name, text):
    for match in TOKEN.finditer(text):
        literal = match.group()
        if literal[0] in "\"'" and not literal.isascii():
            line = text.count("\n", 0, match.start()) + 1
            yield f"{name}:{line}: text beyond ASCII in code that reads bytes: {literal}"


def check_owners(name, text):
    code = TOKEN.sub("", text)
    for match in OWNERS.finditer(code):
        yield f"{name}: {match.group()} in code that a failed read leaves without clean-up"


def check_tree(project):
    source = project / "src"
    files = sorted(p for p in source.rglob("*") if p.suffix in (".h", ".cpp"))
    if not files:
        yield f"no sources in {source}"
    for file in files:
        name = file.relative_to(project).as_posix()
        path = file.relative_to(source).as_posix()
        text = file.read_text(encoding="utf-8")
        if room_of(path) is None:
            yield f"{name}: lies in no known folder"
            continue
        yield from check_includes(name, path, text)
        if path.startswith(("parse/", "makernote/")) and path != "parse/core/win32.h":
            yield from check_literals(name, text)
        if path.startswith(READING_ROOMS) and path not in MAY_OWN:
            yield from check_owners(name, text)


def main():
    faults = list(check_tree(Path(sys.argv[1])))
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
