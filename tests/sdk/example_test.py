#!/usr/bin/env python3
"""Runs an example as its run script does and compares what it prints, to the character, and the
preview it saves, which must be the photo's own thumbnail.

Usage: example_test.py RUN_SCRIPT BUILD_FOLDER PHOTO EXPECTED_TEXT [PREVIEW]

Ends with 77 when the script says so: a tool that it needs is not installed."""

import difflib
import os
import shutil
import subprocess
import sys
from pathlib import Path

SKIPPED = 77


def main(run, build, photo, expected, preview=None):
    preview = preview and Path(preview)
    if preview:
        # A name that only UTF-16 carries unharmed through every language.
        preview.unlink(missing_ok=True)
        preview.parent.mkdir(parents=True, exist_ok=True)
        photo = shutil.copy(photo, preview.parent / "写真 1.jpg")
    result = subprocess.run([run, photo], env={**os.environ, "QMX_BUILD": build},
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, check=False)
    # Programs on Windows end lines in their own way.
    text = result.stdout.decode("utf-8").replace("\r\n", "\n")
    if result.returncode == SKIPPED:
        print(text)
        return SKIPPED
    wanted = Path(expected).read_text(encoding="utf-8")
    sys.stdout.writelines(difflib.unified_diff(wanted.splitlines(True), text.splitlines(True),
                                               "expected", "printed"))
    if result.returncode != 0 or text != wanted:
        print(f"{run} ended with {result.returncode}")
        return 1
    if preview:
        data = preview.read_bytes()
        whole = Path(photo).read_bytes()
        # Two JPEGs lie in each other: the thumbnail begins at the second start-of-image marker.
        start = whole.index(b"\xff\xd8", 2)
        if not data.endswith(b"\xff\xd9") or whole[start:start + len(data)] != data:
            print(f"{preview}: not the thumbnail of {photo}")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
