#!/usr/bin/env python3
"""Makes sample.jpg: a painted picture with the metadata of a camera file.

    python3 make_sample.py [OUT]        (Debian package: python3-pil)
    python3 make_sample.py --set FOLDER  small photos of several cameras, hours and orientations

The file holds what the library shows: Exif, a Panasonic MakerNote, a GPS position and an embedded
thumbnail.  The layout is that of Exif 2.3 (CIPA DC-008): APP1 directly behind the start-of-image
marker, in it a little-endian TIFF structure.  Only the pictures are made by Pillow.
"""

import io
import struct
import sys
from pathlib import Path
from typing import NamedTuple

from PIL import Image

import scene

QUALITY = 86
THUMBNAIL_SIZE = (160, 107)
THUMBNAIL_QUALITY = 90
TIFF_HEADER = struct.pack("<2sHI", b"II", 42, 8)

# How one value of each TIFF type is packed.
BYTE, ASCII, SHORT, LONG, RATIONAL, UNDEFINED, SRATIONAL = 1, 2, 3, 4, 5, 7, 10
PACKING = {SHORT: "<H", LONG: "<I", RATIONAL: "<II", SRATIONAL: "<ii"}
COUNT_SIZE, ENTRY_SIZE, NEXT_SIZE = 2, 12, 4


def encode(kind, values):
    """The (count, bytes) of a directory value."""
    if kind in (BYTE, UNDEFINED):
        return len(values), bytes(values)
    if kind == ASCII:
        text = values.encode("ascii") + b"\0"
        return len(text), text
    values = values if isinstance(values, list) else [values]
    parts = (v if isinstance(v, tuple) else (v,) for v in values)
    return len(values), b"".join(struct.pack(PACKING[kind], *part) for part in parts)


def write_directory(position, rows, next_directory=0):
    """A directory that stands at `position`, followed by the values too long for its entries.

    A row is (tag, type, value).  A value that has to know where it stands (a sub-directory, a
    MakerNote) is a function of that position.
    """
    rows = sorted(rows, key=lambda row: row[0])
    data_start = position + COUNT_SIZE + ENTRY_SIZE * len(rows) + NEXT_SIZE
    entries, data = struct.pack("<H", len(rows)), b""
    for tag, kind, value in rows:
        here = data_start + len(data)
        count, content = encode(kind, value(here) if callable(value) else value)
        entries += struct.pack("<HHI", tag, kind, count)
        if len(content) <= 4:
            entries += content.ljust(4, b"\0")
        else:
            entries += struct.pack("<I", here)
            data += content + b"\0" * (len(content) % 2)  # values start at even positions
    return entries + struct.pack("<I", next_directory) + data


def maker_note(position):
    """The form Panasonic uses: a 12-byte name, then a directory; offsets count from the TIFF
    header, and there is no next directory."""
    name = b"Panasonic\0\0\0"
    return name + write_directory(position + len(name), [
        (0x0001, SHORT, 2),                      # image quality: fine
        (0x0002, UNDEFINED, b"\0\1\1\0"),        # firmware
        (0x0003, SHORT, 3),                      # white balance: cloudy
        (0x0007, SHORT, 1),                      # focus mode: automatic
        (0x000F, BYTE, b"\x10\x00"),             # AF mode: one area
        (0x001A, SHORT, 2),                      # stabiliser: mode 1
        (0x001C, SHORT, 2),                      # macro: off
        (0x001F, SHORT, 7),                      # scene mode: aperture priority
        (0x0023, SHORT, 1),                      # white balance fine tuning
        (0x0024, SHORT, 0),                      # flash compensation
        (0x0025, UNDEFINED, b"F651310050001\0\0\0"),  # internal serial number
        (0x0026, UNDEFINED, b"0350"),            # version of this block
        (0x0028, SHORT, 1),                      # colour effect: none
        (0x002A, SHORT, 1),                      # burst: on ...
        (0x002B, LONG, 3),                       # ... and this is its third picture
        (0x002C, SHORT, 0),                      # contrast, coarse code
        (0x002D, SHORT, 0),                      # noise reduction: standard
        (0x002E, SHORT, 1),                      # self-timer: off
        (0x0031, SHORT, 2),                      # AF assist lamp: enabled, not used
        (0x0032, SHORT, 0),                      # picture adjustment: standard
        (0x0039, SHORT, 1),                      # contrast, step
        (0x003D, SHORT, 1),                      # my colour: standard
        (0x0040, SHORT, 1),                      # saturation, step
        (0x0041, SHORT, 0xFFFF),                 # sharpness, step: -1
        (0x0042, SHORT, 3),                      # film mode: nature
        (0x0051, ASCII, "LUMIX G VARIO 14-42/F3.5-5.6"),
        (0x0052, ASCII, "00000000001"),          # lens serial number
        (0x0053, ASCII, "NO-ACCESSORY"),
        (0x005D, SHORT, 2),                      # shadow correction: medium
    ])


SHOT = [
    (0x829A, RATIONAL, (1, 60)),                 # exposure time, s
    (0x829D, RATIONAL, (56, 10)),                # f-number
    (0x8822, SHORT, 3),                          # program: aperture priority
    (0x8827, SHORT, 400),                        # ISO speed
    (0x8830, SHORT, 1),                          # ... which is the standard output sensitivity
    (0x9000, UNDEFINED, b"0230"),                # Exif version
    (0x9003, ASCII, "2013:10:19 17:17:42"),      # original and digitised
    (0x9004, ASCII, "2013:10:19 17:17:42"),
    (0x9101, UNDEFINED, b"\1\2\3\0"),            # components Y, Cb, Cr
    (0x9201, SRATIONAL, (591, 100)),             # shutter speed, APEX
    (0x9202, RATIONAL, (497, 100)),              # aperture, APEX
    (0x9203, SRATIONAL, (355, 100)),             # brightness, APEX
    (0x9204, SRATIONAL, (-33, 100)),             # exposure bias, EV
    (0x9205, RATIONAL, (361, 100)),              # largest aperture, APEX
    (0x9206, RATIONAL, (2500, 10)),              # subject distance, m
    (0x9207, SHORT, 5),                          # metering: pattern
    (0x9208, SHORT, 10),                         # light source: cloudy
    (0x9209, SHORT, 16),                         # flash: off by choice
    (0x920A, RATIONAL, (140, 10)),               # focal length, mm
    (0x927C, UNDEFINED, maker_note),
    (0xA000, UNDEFINED, b"0100"),                # Flashpix version
    (0xA001, SHORT, 1),                          # sRGB
    (0xA002, LONG, scene.WIDTH),
    (0xA003, LONG, scene.HEIGHT),
    (0xA217, SHORT, 2),                          # sensor: one chip
    (0xA300, UNDEFINED, b"\3"),                  # source: digital camera
    (0xA301, UNDEFINED, b"\1"),                  # scene type: directly photographed
    (0xA401, SHORT, 0),                          # no special processing
    (0xA402, SHORT, 0),                          # exposure mode: automatic
    (0xA403, SHORT, 1),                          # white balance: manual
    (0xA404, RATIONAL, (20, 10)),                # digital zoom
    (0xA405, SHORT, 56),                         # focal length for 35 mm film, zoom included
    (0xA406, SHORT, 1),                          # scene: landscape
    (0xA407, SHORT, 1),                          # gain: low gain up
    (0xA408, SHORT, 2),                          # contrast: hard
    (0xA409, SHORT, 2),                          # saturation: high
    (0xA40A, SHORT, 1),                          # sharpness: soft
    (0xA40C, SHORT, 3),                          # distant view
    (0xA432, RATIONAL, [(14, 1), (42, 1), (35, 10), (56, 10)]),
    (0xA434, ASCII, "LUMIX G VARIO 14-42/F3.5-5.6"),
    (0xA500, RATIONAL, (22, 10)),                # gamma
]

# The north shore of Lake Kawaguchi; the time is UTC.
PLACE = [
    (0, BYTE, b"\2\3\0\0"),
    (1, ASCII, "N"),
    (2, RATIONAL, [(35, 1), (31, 1), (2838, 100)]),
    (3, ASCII, "E"),
    (4, RATIONAL, [(138, 1), (45, 1), (1890, 100)]),
    (5, BYTE, b"\0"),
    (6, RATIONAL, (8330, 10)),
    (7, RATIONAL, [(8, 1), (17, 1), (4150, 100)]),
    (8, ASCII, "07"),
    (9, ASCII, "A"),
    (10, ASCII, "3"),
    (18, ASCII, "WGS-84"),
    (29, ASCII, "2013:10:19"),
]

CAMERA = [
    (0x010E, ASCII, "Lake at dusk, painted by make_sample.py"),
    (0x010F, ASCII, "Panasonic"),
    (0x0110, ASCII, "DMC-GX7"),
    (0x0112, SHORT, 1),                          # upright
    (0x011A, RATIONAL, (180, 1)),
    (0x011B, RATIONAL, (180, 1)),
    (0x0128, SHORT, 2),                          # resolution in inches
    (0x0131, ASCII, "make_sample.py"),
    (0x0132, ASCII, "2013:10:19 17:17:42"),
    (0x013B, ASCII, "qmxexif"),
    (0x0213, SHORT, 1),                          # chroma sited between the pixels
    (0x8298, ASCII, "Free for any use"),
]


def write_tiff(thumbnail, camera_rows=CAMERA, shot_rows=SHOT):
    """Header, camera directory, then Exif, GPS and thumbnail directories and the thumbnail."""
    start = len(TIFF_HEADER)

    def camera(exif, gps, following):
        pointers = [(0x8769, LONG, exif), (0x8825, LONG, gps)]
        return write_directory(start, camera_rows + pointers, following)

    exif_at = start + len(camera(0, 0, 0))
    exif = write_directory(exif_at, shot_rows)
    gps_at = exif_at + len(exif)
    gps = write_directory(gps_at, PLACE)
    preview_at = gps_at + len(gps)

    def preview(jpeg):
        return write_directory(preview_at, [
            (0x0103, SHORT, 6),                  # JPEG
            (0x0112, SHORT, 1),
            (0x011A, RATIONAL, (180, 1)),
            (0x011B, RATIONAL, (180, 1)),
            (0x0128, SHORT, 2),
            (0x0201, LONG, jpeg),
            (0x0202, LONG, len(thumbnail)),
            (0x0213, SHORT, 1),
        ])

    jpeg_at = preview_at + len(preview(0))
    return (TIFF_HEADER + camera(exif_at, gps_at, preview_at) + exif + gps + preview(jpeg_at)
            + thumbnail)


def plain_jpeg(picture, quality):
    """The picture as a JPEG file without application segments: Exif wants to come first, and
    allows none in a thumbnail."""
    file = io.BytesIO()
    picture.save(file, "JPEG", quality=quality, subsampling="4:2:2")
    content = file.getvalue()
    at = 2
    while 0xE0 <= content[at + 1] <= 0xEF:
        at += 2 + int.from_bytes(content[at + 2:at + 4], "big")
    return content[:2] + content[at:]


def segment(marker, content):
    return bytes((0xFF, marker)) + struct.pack(">H", len(content) + 2) + content


def write_photo(target, picture, thumbnail_size, camera_rows=CAMERA, shot_rows=SHOT):
    thumbnail = plain_jpeg(picture.resize(thumbnail_size, Image.Resampling.LANCZOS),
                           THUMBNAIL_QUALITY)
    jpeg = plain_jpeg(picture, QUALITY)
    exif = segment(0xE1, b"Exif\0\0" + write_tiff(thumbnail, camera_rows, shot_rows))
    target.write_bytes(jpeg[:2] + exif + jpeg[2:])
    print(f"{target}: {target.stat().st_size // 1000} kB")


class View(NamedTuple):
    """One photo of the set: a part of the scene, in some light, taken with some camera."""
    name: str
    light: scene.Light
    box: tuple            # left, top, right, bottom of the scene
    make: str
    model: str
    taken: str
    exposure: tuple       # seconds, as a fraction
    f_number: int         # tenths
    iso: int
    focal_length: int     # mm
    orientation: int = 1


WHOLE, TALL, PEAK = (0, 0, 1600, 1067), (640, 60, 1280, 1020), (660, 120, 1260, 520)
SHORE, LEFT, RIGHT = (780, 500, 1500, 980), (0, 107, 960, 747), (800, 200, 1600, 733)
SET = [
    View("夕暮れの湖", scene.DUSK, WHOLE, "Panasonic", "DMC-GX7", "2013:10:19 17:17:42",
         (1, 60), 56, 400, 14),
    View("朝の富士", scene.DAWN, PEAK, "Canon", "Canon EOS 70D", "2013:10:20 06:02:11",
         (1, 125), 80, 200, 85),
    View("縦位置の富士", scene.NOON, TALL, "NIKON CORPORATION", "NIKON D7100",
         "2013:10:20 11:40:05", (1, 500), 71, 100, 50, 8),
    View("正午の湖", scene.NOON, WHOLE, "SONY", "ILCE-7", "2013:10:20 12:03:56",
         (1, 640), 80, 100, 28),
    View("紅葉の岸", scene.AUTUMN, RIGHT, "FUJIFILM", "X-E2", "2013:10:20 14:21:30",
         (1, 240), 56, 200, 35),
    View("もみの木", scene.AUTUMN, (0, 300, 480, 1020), "OLYMPUS IMAGING CORP.", "E-M1",
         "2013:10:20 14:35:19", (1, 200), 40, 200, 40, 6),
    View("岸の灯", scene.DUSK, SHORE, "PENTAX", "PENTAX K-3", "2013:10:20 17:31:08",
         (1, 15), 35, 1600, 70),
    View("逆さの富士", scene.DAWN, LEFT, "RICOH IMAGING COMPANY, LTD.", "GR",
         "2013:10:21 06:10:44", (1, 90), 63, 160, 18, 3),
    View("夜の湖", scene.NIGHT, WHOLE, "Canon", "Canon EOS 6D", "2013:10:21 19:48:00",
         (8, 1), 40, 3200, 24),
    View("夜の縦位置", scene.NIGHT, TALL, "SONY", "DSC-RX100M2", "2013:10:21 19:55:27",
         (4, 1), 28, 1600, 11, 6),
]

# How the upright picture is stored so that the orientation's turn makes it upright again.
STORED = {3: Image.Transpose.ROTATE_180, 6: Image.Transpose.ROTATE_90,
          8: Image.Transpose.ROTATE_270}
LONG_SIDE, THUMBNAIL_LONG_SIDE = 640, 160


def changed(rows, changes, without=()):
    """The rows with other values, in part without the first camera's own tags."""
    return [(tag, kind, changes.get(tag, value)) for tag, kind, value in rows
            if tag not in without]


def fit(size, longer):
    return tuple(round(side * longer / max(size)) for side in size)


def write_view(folder, view, picture):
    picture = picture.crop(view.box)
    if view.orientation in STORED:
        picture = picture.transpose(STORED[view.orientation])
    picture = picture.resize(fit(picture.size, LONG_SIDE), Image.Resampling.LANCZOS)
    camera_rows = changed(CAMERA, {0x010F: view.make, 0x0110: view.model,
                                   0x0112: view.orientation, 0x0132: view.taken})
    # The lens and the maker's note belong to the first camera; tags from the distances and
    # brightness of that shot would contradict these ones.
    own = () if view.make == "Panasonic" else (
        0x9201, 0x9202, 0x9203, 0x9205, 0x9206, 0x927C, 0xA404, 0xA405, 0xA432, 0xA434)
    shot_rows = changed(SHOT, {
        0x829A: view.exposure, 0x829D: (view.f_number, 10), 0x8827: view.iso,
        0x9003: view.taken, 0x9004: view.taken, 0x920A: (view.focal_length, 1),
        0xA002: picture.width, 0xA003: picture.height}, own)
    write_photo(folder / f"{view.name}.jpg", picture, fit(picture.size, THUMBNAIL_LONG_SIDE),
                camera_rows, shot_rows)


def write_set(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for light in {view.light: None for view in SET}:
        picture = scene.paint(light)
        for view in SET:
            if view.light is light:
                write_view(folder, view, picture)


def main():
    if sys.argv[1:2] == ["--set"]:
        write_set(Path(sys.argv[2]))
        return
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).with_name("sample.jpg")
    write_photo(target, scene.paint(), THUMBNAIL_SIZE)


if __name__ == "__main__":
    main()
