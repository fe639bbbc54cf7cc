#!/usr/bin/env python3
"""Runs the photo browser without a user: a folder with a Japanese path, more photos than it reads
at once, broken and empty files, and a folder that is not there.

Usage: browser_test.py SAMPLE FOLDER PROGRAM...   (FOLDER is for a prefix of Wine)"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SAMPLE = Path(sys.argv[1])
PREFIX = Path(sys.argv[2])
PROGRAM = sys.argv[3:]
PHOTOS = 60

# Makes windows that nobody sees: without a display Wine makes none.
WINDOWLESS = '\n[Software\\\\Wine\\\\Drivers] 1\n"Graphics"="null"\n'


def make_prefix():
    """The project's own prefix, with a registry of its own."""
    cache = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache")
    base = Path(os.environ.get("QMX_WINEPREFIX") or cache / "qmxexif/wine")
    subprocess.run([PROGRAM[0], "cmd", "/c", "exit"], stdin=subprocess.DEVNULL, check=True)
    shutil.rmtree(PREFIX, ignore_errors=True)
    PREFIX.mkdir(parents=True)
    for file in (*base.glob("*.reg"), *base.glob(".update-timestamp")):
        shutil.copy(file, PREFIX)
    shutil.copytree(base / "dosdevices", PREFIX / "dosdevices", symlinks=True)
    (PREFIX / "drive_c").symlink_to(base / "drive_c")
    user = PREFIX / "user.reg"
    text = user.read_text(encoding="utf-8") if user.exists() else "WINE REGISTRY Version 2\n"
    user.write_text(text + WINDOWLESS, encoding="utf-8")
    (PREFIX / ".ready").touch()


def check(folder):
    environment = dict(os.environ)
    if len(PROGRAM) > 1:
        environment["QMX_WINEPREFIX"] = str(PREFIX)
    result = subprocess.run([*PROGRAM, "--check", str(folder)], env=environment, check=False,
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
    return result.returncode, result.stdout.decode("utf-8").strip()


class Browser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        if len(PROGRAM) > 1:
            make_prefix()

    def test_every_photo_of_a_folder_is_read(self):
        folder = Path(tempfile.mkdtemp()) / "写真 秋"
        self.addCleanup(shutil.rmtree, folder.parent)
        folder.mkdir()
        for number in range(PHOTOS):
            shutil.copy(SAMPLE, folder / f"湖 {number}.jpg")
        sample = SAMPLE.read_bytes()
        (folder / "cut.jpg").write_bytes(sample[:2000])  # inside the metadata
        (folder / "empty.nef").write_bytes(b"")
        (folder / "noise.cr2").write_bytes(bytes(range(256)) * 64)
        (folder / "notes.txt").write_bytes(b"no photo")
        status, line = check(folder)
        self.assertEqual(status, 0)
        counts = {name: int(number) for name, number in
                  (part.split() for part in line.split(", "))}
        self.assertEqual(counts["photos"], PHOTOS + 3)
        self.assertEqual(counts["thumbnails"], PHOTOS)
        self.assertEqual(counts["described"], PHOTOS + 1)
        self.assertGreater(counts["rows"], PHOTOS * 50)

    def test_a_missing_folder_is_empty(self):
        self.assertEqual(check("C:\\no such folder\\at all"),
                         (0, "photos 0, thumbnails 0, described 0, rows 0"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
