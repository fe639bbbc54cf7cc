#!/usr/bin/env python3
"""Uses qmxshow as its users do: on the sample photo, on a folder with a broken file, on names in
Japanese, and wrongly.

Usage: qmxshow_test.py SAMPLE PROGRAM...   (PROGRAM is run with the arguments of each case)"""

import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

SAMPLE = Path(sys.argv[1])
PROGRAM = sys.argv[2:]


def show(*arguments, cwd):
    result = subprocess.run([*PROGRAM, *map(str, arguments)], cwd=cwd, capture_output=True,
                            stdin=subprocess.DEVNULL, check=False)
    return result.returncode, result.stdout.decode("utf-8"), result.stderr.decode("utf-8")


class Sheet(HTMLParser):
    """Counts the elements of a contact sheet and what it would load from elsewhere."""

    def __init__(self, text):
        super().__init__()
        self.counts = {}
        self.foreign = []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        self.counts[tag] = self.counts.get(tag, 0) + 1
        for name, value in attrs:
            if name in ("src", "href") and not (value or "").startswith("data:"):
                self.foreign.append(value)


class QmxShow(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.photo = self.folder / "写真 一.jpg"
        shutil.copy(SAMPLE, self.photo)

    def test_text_of_a_photo(self):
        status, out, err = show(self.photo.name, cwd=self.folder)
        self.assertEqual((status, err), (0, ""))
        for wanted in ("60 F5.6 -0.3 400", "モデル名: DMC-GX7", "[Exif情報]", "[GPS位置]",
                       "N 35度31分28.38秒 (35.524551)", "JPEG, 160 x 107 pixels"):
            self.assertIn(wanted, out)

    def test_json_is_one_object_per_file(self):
        (self.folder / "broken.jpg").write_bytes(SAMPLE.read_bytes()[:40])
        status, out, err = show("--json", ".", cwd=self.folder)
        rows = [json.loads(line) for line in out.splitlines()]
        self.assertEqual(status, 1)
        self.assertIn("broken.jpg", err)
        self.assertEqual([row["ok"] for row in rows], [False, True])
        photo = rows[1]
        self.assertEqual(photo["modelText"], "DMC-GX7")
        self.assertEqual(photo["imageWidth"], 1600)
        self.assertAlmostEqual(photo["exposureTime"], 1 / 60, places=6)
        self.assertIn({"section": "Exif情報", "label": "メーカー名", "value": "Panasonic"},
                      photo["list"])
        self.assertEqual(photo["preview"]["kind"].upper(), "JPEG")

    def test_preview_is_written_with_its_extension(self):
        status, _, err = show("--quiet", "--thumb", "out", self.photo.name, cwd=self.folder)
        self.assertEqual((status, err), (0, ""))
        preview = (self.folder / "out.jpg").read_bytes()
        self.assertTrue(preview.startswith(b"\xff\xd8"))
        self.assertTrue(preview.endswith(b"\xff\xd9"))
        self.assertIn(preview, SAMPLE.read_bytes())

    def test_sheet_is_self_contained(self):
        status, _, err = show("--html", "sheet.html", ".", cwd=self.folder)
        self.assertEqual((status, err), (0, ""))
        sheet = Sheet((self.folder / "sheet.html").read_text(encoding="utf-8"))
        self.assertEqual(sheet.counts.get("img"), 1)
        self.assertEqual(sheet.counts.get("details"), 1)
        self.assertEqual(sheet.foreign, [])

    def test_long_paths_are_walked(self):
        deep = self.folder.joinpath(*["d" * 100] * 3)
        deep.mkdir(parents=True)
        shutil.copy(SAMPLE, deep / "deep.jpg")
        status, out, _ = show("--json", ".", cwd=self.folder)
        self.assertEqual(status, 0)
        self.assertEqual(len(out.splitlines()), 2)

    def test_wrong_use_ends_with_2(self):
        for arguments in ((), ("--no-such-option",), ("--thumb",)):
            status, _, err = show(*arguments, cwd=self.folder)
            self.assertEqual(status, 2, arguments)
            self.assertNotEqual(err, "", arguments)
        status, _, err = show("nothere.jpg", self.photo.name, cwd=self.folder)
        self.assertEqual(status, 1)
        self.assertIn("nothere.jpg", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
