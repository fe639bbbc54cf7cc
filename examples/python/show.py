#!/usr/bin/env python3
"""Shows a photo through qmxexif with nothing but ctypes: its texts, the first rows of the labelled
list, and its small preview in a file.

    python show.py LIBRARY PHOTO PREVIEW

LIBRARY is the full path of qmxexif.dll or, off Windows, of libqmxexif.so.  Texts are UTF-16 in both
cases, while ctypes' own wide strings are not outside Windows: so buffers of 16-bit units are used,
which work everywhere.
"""

import ctypes
import os
import sys

# ---- Texts ----


def to_utf16(text):
    """The text as a NUL-terminated array of 16-bit units."""
    data = text.encode("utf-16-le", "surrogatepass") + b"\0\0"
    return (ctypes.c_uint16 * (len(data) // 2)).from_buffer_copy(data)


def from_utf16(address):
    """The text at an address up to its NUL, or None for a null pointer."""
    if not address:
        return None
    length = 0
    while ctypes.c_uint16.from_address(address + 2 * length).value:
        length += 1
    return ctypes.string_at(address, 2 * length).decode("utf-16-le", "replace")


# ---- The record ----


class InfoRequest(ctypes.Structure):
    """What ExifGetExifInfoEx fills: 408 bytes, packed to 4.  Set the texts' pointers before.

    An integer that the file does not give is 0x7FFFFFFF, a float 3.4028235e38."""

    _pack_ = 4
    _fields_ = [
        ("modelText", ctypes.c_uint16 * 32),
        ("captureTime", ctypes.c_uint16 * 8),  # year, month, 0, day, hour, minute, second, 0
        ("imageWidth", ctypes.c_int32),
        ("imageHeight", ctypes.c_int32),
        ("exposureProgram", ctypes.c_int32),
        ("focalLength", ctypes.c_float),
        ("focalLength35mm", ctypes.c_float),
        ("exposureTime", ctypes.c_float),
        ("exposureBias", ctypes.c_float),
        ("fNumber", ctypes.c_float),
        ("isoSpeed", ctypes.c_int32),
        ("flashFired", ctypes.c_uint32),
        ("longText", ctypes.c_void_p),
        ("longTextCapacity", ctypes.c_int32),
        ("shortText", ctypes.c_void_p),
        ("shortTextCapacity", ctypes.c_int32),
        ("orientation", ctypes.c_uint32),
        ("reserved", ctypes.c_uint8 * 16),
        ("meteringMode", ctypes.c_int32),
        ("whiteBalance", ctypes.c_int32),
        ("maxAperture", ctypes.c_float),
        ("makeText", ctypes.c_uint16 * 32),
        ("lensText", ctypes.c_uint16 * 64),
        ("whiteBalanceText", ctypes.c_uint16 * 20),
    ]


assert ctypes.sizeof(InfoRequest) == 408

# ---- A stream ----

# Calls from the library into Python.  On x64 there is one calling convention per system, so that
# CFUNCTYPE serves for WINAPI too.
METHOD = ctypes.CFUNCTYPE
POINTER, ULONG, HRESULT = ctypes.c_void_p, ctypes.c_uint32, ctypes.c_int32
S_OK = 0
E_NOTIMPL = ctypes.c_int32(0x80004001).value
E_NOINTERFACE = ctypes.c_int32(0x80004002).value
STG_E_INVALIDFUNCTION = ctypes.c_int32(0x80030001).value


class MemoryStream:
    """A COM IStream over a bytearray.

    A COM object is a pointer to a table of functions, each of which takes the object first.  The
    library calls Seek, SetSize and Write only and keeps no reference; the other methods decline.
    Keep the object alive, in a variable, for as long as the call runs.
    """

    def __init__(self):
        self.data = bytearray()
        self.position = 0
        decline = E_NOTIMPL
        methods = [  # in the order of IUnknown, ISequentialStream, IStream
            METHOD(HRESULT, POINTER, POINTER, POINTER)(lambda *_: E_NOINTERFACE),  # QueryInterface
            METHOD(ULONG, POINTER)(lambda _: 1),  # AddRef
            METHOD(ULONG, POINTER)(lambda _: 1),  # Release
            METHOD(HRESULT, POINTER, POINTER, ULONG, POINTER)(lambda *_: decline),  # Read
            METHOD(HRESULT, POINTER, POINTER, ULONG, POINTER)(self._write),
            METHOD(HRESULT, POINTER, ctypes.c_int64, ULONG, POINTER)(self._seek),
            METHOD(HRESULT, POINTER, ctypes.c_uint64)(self._set_size),
            METHOD(HRESULT, POINTER, POINTER, ctypes.c_uint64, POINTER, POINTER)(
                lambda *_: decline),  # CopyTo
            METHOD(HRESULT, POINTER, ULONG)(lambda *_: S_OK),  # Commit
            METHOD(HRESULT, POINTER)(lambda *_: decline),  # Revert
            METHOD(HRESULT, POINTER, ctypes.c_uint64, ctypes.c_uint64, ULONG)(
                lambda *_: decline),  # LockRegion
            METHOD(HRESULT, POINTER, ctypes.c_uint64, ctypes.c_uint64, ULONG)(
                lambda *_: decline),  # UnlockRegion
            METHOD(HRESULT, POINTER, POINTER, ULONG)(lambda *_: decline),  # Stat
            METHOD(HRESULT, POINTER, POINTER)(lambda *_: decline),  # Clone
        ]
        self._methods = methods  # ctypes frees a callback that nothing refers to
        table = [ctypes.cast(method, POINTER) for method in methods]
        self._table = (POINTER * len(table))(*table)
        self._object = POINTER(ctypes.addressof(self._table))
        self.address = ctypes.addressof(self._object)

    def _write(self, _this, source, length, written):
        self.data[len(self.data):] = bytes(max(0, self.position - len(self.data)))
        self.data[self.position:self.position + length] = ctypes.string_at(source, length)
        self.position += length
        if written:
            ULONG.from_address(written).value = length
        return S_OK

    def _seek(self, _this, move, origin, moved):
        if origin > 2:
            return STG_E_INVALIDFUNCTION
        target = (0, self.position, len(self.data))[origin] + move
        if target < 0:
            return STG_E_INVALIDFUNCTION
        self.position = target
        if moved:
            ctypes.c_uint64.from_address(moved).value = target
        return S_OK

    def _set_size(self, _this, size):
        self.data[size:] = bytes(max(0, size - len(self.data)))
        return S_OK


# ---- The library ----

ROW = ctypes.CFUNCTYPE(ctypes.c_ssize_t, ctypes.c_uint32, POINTER, POINTER, ctypes.c_ssize_t)


def load(path):
    """Loads the library and declares the functions used here."""
    library = ctypes.CDLL(os.path.abspath(path))
    library.ExifGetExifInfoEx.argtypes = [POINTER, POINTER, POINTER, ctypes.c_uint32, POINTER]
    library.ExifGetExifInfoEx.restype = ctypes.c_uint32
    library.ExifEnumInfo.argtypes = [POINTER, ROW, ctypes.c_ssize_t]
    library.ExifEnumInfo.restype = ctypes.c_uint32
    return library


def read_photo(library, path):
    """The short text, the long text, the preview's bytes and the orientation, or None."""
    name, info, stream = to_utf16(path), InfoRequest(), MemoryStream()
    long_text, short_text = (ctypes.c_uint16 * 1024)(), (ctypes.c_uint16 * 257)()
    info.longText, info.longTextCapacity = ctypes.addressof(long_text), 1024
    info.shortText, info.shortTextCapacity = ctypes.addressof(short_text), 256
    if not library.ExifGetExifInfoEx(name, stream.address, None, 0, ctypes.byref(info)):
        return None
    return (from_utf16(info.shortText), from_utf16(info.longText), bytes(stream.data),
            info.orientation)


def read_list(library, path):
    """The rows of the labelled list: (is a heading, label, value or None)."""
    rows = []

    def collect(kind, label, value, _user):
        rows.append((kind == 1, from_utf16(label), from_utf16(value)))
        return 0

    library.ExifEnumInfo(to_utf16(path), ROW(collect), 0)
    return rows


def main():
    library_path, photo_path, preview_path = sys.argv[1:]
    library = load(library_path)
    photo = read_photo(library, photo_path)
    if photo is None:
        sys.exit("no metadata or no preview")
    short_text, long_text, preview, orientation = photo
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    print(f"{short_text}\n\n{long_text}\n")
    for heading, label, value in read_list(library, photo_path)[:6]:
        print(f"[{label}]" if heading else label if value is None else f"{label}: {value}")
    with open(preview_path, "wb") as file:
        file.write(preview)
    print(f"\npreview: {len(preview)} bytes, orientation {orientation}")


if __name__ == "__main__":
    main()
