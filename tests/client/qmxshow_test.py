#!/usr/bin/env python3
"""Uses qmxshow as its users do: on the sample photo, on a folder with a broken file, on names in
Japanese, and wrongly.

Usage: qmxshow_test.py SAMPLE PROGRAM...   (PROGRAM is run with the arguments of each case)"""

import csv
import io
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from html.parser import HTMLParser
from pathlib import Path

SAMPLE = Path(sys.argv[1])
PAGE = Path(__file__).parents[2] / "docs/qmxshow.md"
PROGRAM = sys.argv[2:]


def show(*arguments, cwd):
    result = subprocess.run([*PROGRAM, *map(str, arguments)], cwd=cwd, capture_output=True,
                            stdin=subprocess.DEVNULL, check=False)
    return result.returncode, result.stdout.decode("utf-8"), result.stderr.decode("utf-8")


def variant(**texts):
    """The sample with other texts of the same length: make, model, date."""
    content = SAMPLE.read_bytes()
    for old, new in (("Panasonic", texts.get("make")), ("DMC-GX7", texts.get("model")),
                     ("2013:10:19 17:17:42", texts.get("date"))):
        if new:
            content = content.replace(old.encode(), new.encode().ljust(len(old), b" "))
    return content


def process_with(argument):
    """The id of the process that got the argument."""
    for entry in Path("/proc").glob("[0-9]*/cmdline"):
        try:
            arguments = entry.read_bytes().split(b"\0")
        except OSError:
            continue
        if argument.encode() in arguments and not any(a.endswith(b".sh") for a in arguments):
            return int(entry.parent.name)
    return None


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

    def test_filters_and_order(self):
        for name, texts in (("1.jpg", {"date": "2014:02:03 04:05:06", "model": "B"}),
                            ("2.jpg", {"make": "Nikon", "date": "2012:12:31 23:59:59"}),
                            ("3.jpg", {"make": "Canon", "model": "A"})):
            (self.folder / name).write_bytes(variant(**texts))
        self.photo.unlink()
        (self.folder / "4.jpg").write_bytes(b"")  # failures are told whatever the filters
        cases = (
            ((), "1234"),
            (("--maker", "NIK"), "24"),
            (("--since", "2013"), "134"),
            (("--until", "2013-10"), "234"),
            (("--since", "2013-10-19", "--until", "2013-10-19"), "34"),
            (("--sort", "date"), "2314"),
            (("--sort", "model", "--jobs", "3"), "3124"),
            (("--sort", "maker"), "3214"),
        )
        for arguments, wanted in cases:
            with self.subTest(arguments=arguments):
                status, out, err = show("--json", *arguments, ".", cwd=self.folder)
                names = "".join(json.loads(line)["path"][-5] for line in out.splitlines())
                self.assertEqual((status, names), (1, wanted))
                self.assertRegex(err, r"done: 4 files, (\d shown, )?1 failed, \d+\.\d s")

    def test_threads_keep_the_order(self):
        for number in range(40):
            (self.folder / f"{number:02}.jpg").write_bytes(variant(model=f"M{number}"))
        _, one, _ = show("--json", "--jobs", "1", ".", cwd=self.folder)
        status, many, err = show("--json", "--jobs", "8", ".", cwd=self.folder)
        self.assertEqual((status, many), (0, one))
        self.assertIn("done: 41 files, 0 failed", err)

    def test_csv_is_read_back(self):
        (self.folder / "a, \u201cb\u201d.jpg").write_bytes(variant(model='A 1",2x'))
        (self.folder / "broken.jpg").write_bytes(b"")
        _, out, _ = show("--csv", ".", cwd=self.folder)
        self.assertTrue(out.startswith("\ufeffpath,error,"))
        rows = list(csv.DictReader(io.StringIO(out.lstrip("\ufeff"), newline="")))
        self.assertEqual([row["modelText"] for row in rows], ['A 1",2x', "", "DMC-GX7"])
        self.assertTrue(rows[0]["path"].endswith("a, \u201cb\u201d.jpg"))
        self.assertNotEqual(rows[1]["error"], "")
        self.assertEqual((rows[2]["captureTime"], rows[2]["isoSpeed"], rows[2]["fNumber"]),
                         ("2013-10-19 17:17:42", "400", "5.6"))

    def test_the_page_names_every_key(self):
        page = PAGE.read_text(encoding="utf-8")
        (self.folder / "broken.jpg").write_bytes(b"")
        _, out, _ = show("--json", ".", cwd=self.folder)
        broken, photo = (json.loads(line) for line in out.splitlines())
        keys = {*broken, *photo, *photo["list"][0], *photo["preview"]}
        self.assertEqual(set(re.findall(r"^\| `(\w+)` \|", page, re.MULTILINE)), keys)
        _, out, _ = show("--csv", self.photo.name, cwd=self.folder)
        heading = out.lstrip("\ufeff").splitlines()[0]
        self.assertIn(heading, page.replace("\n", ""))
        _, out, _ = show("--help", cwd=self.folder)
        for option in set(re.findall(r"^  (--\w+)", out, re.MULTILINE)):
            self.assertIn(option, page)

    @unittest.skipIf(os.name == "nt", "needs Wine's signals")
    def test_an_interrupted_run_ends_whole(self):
        photos = 60  # far more text than a pipe holds
        for number in range(photos):
            shutil.copy(SAMPLE, self.folder / f"{number:02}.jpg")
        with subprocess.Popen([*PROGRAM, "--json", "--jobs", "2", str(self.folder)],
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as process:
            lines = [process.stdout.readline()]
            os.kill(process_with(str(self.folder)), signal.SIGINT)
            time.sleep(0.5)
            lines += process.stdout.readlines()
            err = process.stderr.read().decode("utf-8")
        self.assertEqual(process.returncode, 1)
        self.assertTrue(all(json.loads(line)["ok"] for line in lines))
        self.assertLess(len(lines), photos)
        self.assertIn(f"interrupted: {len(lines)} files, 0 failed, {photos + 1 - len(lines)} not read",
                      err)

    def test_wrong_use_ends_with_2(self):
        for arguments in ((), ("--no-such-option",), ("--thumb",), ("--sort", "x", "."),
                          ("--since", "2013-13", "."), ("--jobs", "0", "."),
                          ("--csv", "--json", ".")):
            status, _, err = show(*arguments, cwd=self.folder)
            self.assertEqual(status, 2, arguments)
            self.assertNotEqual(err, "", arguments)
        status, _, err = show("nothere.jpg", self.photo.name, cwd=self.folder)
        self.assertEqual(status, 1)
        self.assertIn("nothere.jpg", err)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
