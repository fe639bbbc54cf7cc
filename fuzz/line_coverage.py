#!/usr/bin/env python3
"""Prints the share of lines reached per folder of the readers, and the lines that were not.

Usage: line_coverage.py LCOV_FILE PROJECT_FOLDER"""

import sys
from collections import defaultdict
from pathlib import Path

# The share of lines that each folder of src/ is to reach.
AIMS = {"parse": 95, "makernote": 95, "text": 95, "rawdev": 90, "api": None}


def read_counts(lcov, source):
    """The executions of each line: {path below src/: {line: count}}."""
    counts = defaultdict(lambda: defaultdict(int))
    path = None
    for record in lcov.read_text().splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            path = Path(value).resolve()
            path = path.relative_to(source).as_posix() if source in path.parents else None
        elif kind == "DA" and path is not None:
            line, count = value.split(",")[:2]
            counts[path][int(line)] += int(count)
    return counts


def ranges(lines):
    """[3, 4, 5, 9] as "3-5 9"."""
    runs = []
    for line in sorted(lines):
        if runs and line == runs[-1][1] + 1:
            runs[-1][1] = line
        else:
            runs.append([line, line])
    return " ".join(str(a) if a == b else f"{a}-{b}" for a, b in runs)


def main():
    source = Path(sys.argv[2]).resolve() / "src"
    counts = read_counts(Path(sys.argv[1]), source)
    print(f"{'folder':<12}{'lines':>8}{'reached':>9}{'share':>9}{'aim':>7}")
    for folder, aim in AIMS.items():
        files = [lines for path, lines in counts.items() if path.startswith(folder + "/")]
        total = sum(len(lines) for lines in files)
        reached = sum(count > 0 for lines in files for count in lines.values())
        share = 100 * reached / max(total, 1)
        print(f"{folder:<12}{total:>8}{reached:>9}{share:>8.2f}%{f'{aim}%' if aim else '':>7}")
    print("\nnot reached")
    for path in sorted(counts):
        missed = [line for line, count in counts[path].items() if count == 0]
        if missed and path.split("/")[0] in AIMS:
            print(f"  {path}: {ranges(missed)}")


if __name__ == "__main__":
    main()
