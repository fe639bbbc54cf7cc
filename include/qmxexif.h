/* qmxexif.h - the public interface of qmxexif.dll: previews and photographic metadata of
 * camera files (JPEG, TIFF-based raw, CRW, MRW, RAF, X3F).
 *
 * Plain C, usable from C11 and C++.  Link with the import library, or load the DLL and look the
 * functions up by name; the exported names are undecorated.
 *
 * Rules that hold for every function:
 *   - Paths are NUL-terminated UTF-16 and may be longer than 260 characters.  Files are opened
 *     for reading with read sharing only, mapped, never written, and released before the call
 *     returns.
 *   - Texts are Japanese UTF-16, always NUL-terminated.
 *   - Streams are COM IStream pointers owned by the caller.  The library calls Seek, SetSize and
 *     Write on them and neither keeps nor releases them.  After success the stream stands at its
 *     start.
 *   - Nothing is kept between calls.  Calls on different threads may run at the same time.
 *   - No C++ exception leaves the library, and no content of a file makes it fault.
 *   - Returned numbers: 1 for success and 0 for failure unless stated otherwise.
 */
#ifndef QMXEXIF_H
#define QMXEXIF_H

#include <windows.h>

#include <objidl.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Marks a numeric value that the file does not give. */
#define QMXEXIF_INT_UNSET 2147483647     /* 0x7FFFFFFF */
#define QMXEXIF_FLOAT_UNSET 3.4028235e38f /* the largest finite float, bits 0x7F7FFFFF */

/* Sizes of the record that ExifGetExifInfo and ExifGetExifInfoEx exchange, in bytes. */
#define QMXEXIF_BASIC_INFO_SIZE 164
#define QMXEXIF_FULL_INFO_SIZE 408

/* The buffer that ExifGetInfoTip, ExifGetThumbsnail and ExifGetThumbnailImage may fill. */
#define QMXEXIF_TEXT_BUFFER_LENGTH 1282 /* characters, terminators included */

#pragma pack(push, 4)

/* What one file says about the picture.  Packed to 4 bytes; the layout never changes.
 *
 * The first 164 bytes (up to and including `reserved`) are the basic record of ExifGetExifInfo,
 * the whole 408 bytes that of ExifGetExifInfoEx.  The caller zeroes the record, sets the two text
 * pointers and capacities if it wants texts, and passes it in.  Absent integers are
 * QMXEXIF_INT_UNSET, absent floats QMXEXIF_FLOAT_UNSET, absent texts empty. */
typedef struct InfoRequest {
    WCHAR modelText[32];       /* camera model */
    SYSTEMTIME captureTime;    /* DateTimeOriginal, camera's local time; left as given when the
                                  file has none, all zero when it has fewer than 14 digits;
                                  wDayOfWeek and wMilliseconds are 0 */
    INT32 imageWidth;          /* pixels, from the Exif pixel dimensions */
    INT32 imageHeight;         /* likewise */
    INT32 exposureProgram;     /* Exif code: 1 manual, 2 program, 3 aperture, 4 shutter priority,
                                  5 creative, 6 action, 7 portrait, 8 landscape */
    FLOAT focalLength;         /* mm */
    FLOAT focalLength35mm;     /* mm, equivalent for 35 mm film */
    FLOAT exposureTime;        /* seconds; from the shutter speed value when the file gives no
                                  exposure time */
    FLOAT exposureBias;        /* EV */
    FLOAT fNumber;             /* from the aperture value when the file gives no f-number */
    INT32 isoSpeed;            /* 0 = automatic */
    UINT32 flashFired;         /* 1 when the flash fired, else 0 */
    WCHAR* longText;           /* in: buffer for the multi-line description, or NULL */
    INT32 longTextCapacity;    /* in: its size in characters; below 1 = no text wanted */
    WCHAR* shortText;          /* in: buffer for the one-line summary, or NULL.  It must hold one
                                  character more than the capacity says */
    INT32 shortTextCapacity;   /* in: its stated size in characters; below 1 = no text wanted */
    UINT32 orientation;        /* Exif orientation 1..8; 1 when the file gives none */
    UINT8 reserved[16];        /* never written */
    INT32 meteringMode;        /* Exif code; first field beyond the basic record */
    INT32 whiteBalance;        /* Exif code: 0 automatic, 1 manual */
    FLOAT maxAperture;         /* the lens's largest aperture as an f-number */
    WCHAR makeText[32];        /* camera make */
    WCHAR lensText[64];        /* lens, as the maker's data name it */
    WCHAR whiteBalanceText[20]; /* white balance in words, the maker's where known */
} InfoRequest;

#pragma pack(pop)

#if defined(__cplusplus)
#define QMXEXIF_CHECK(condition, text) static_assert(condition, text)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define QMXEXIF_CHECK(condition, text) _Static_assert(condition, text)
#else /* an older C has nothing to check with; the empty declaration stays legal */
#define QMXEXIF_CHECK(condition, text) struct InfoRequest
#endif
#define QMXEXIF_CHECK_OFFSET(field, offset) \
    QMXEXIF_CHECK(offsetof(InfoRequest, field) == (offset), "InfoRequest." #field " moved")

QMXEXIF_CHECK(sizeof(WCHAR) == 2, "texts are UTF-16");
QMXEXIF_CHECK(sizeof(InfoRequest) == QMXEXIF_FULL_INFO_SIZE, "InfoRequest changed its size");
QMXEXIF_CHECK_OFFSET(modelText, 0);
QMXEXIF_CHECK_OFFSET(captureTime, 64);
QMXEXIF_CHECK_OFFSET(imageWidth, 80);
QMXEXIF_CHECK_OFFSET(imageHeight, 84);
QMXEXIF_CHECK_OFFSET(exposureProgram, 88);
QMXEXIF_CHECK_OFFSET(focalLength, 92);
QMXEXIF_CHECK_OFFSET(focalLength35mm, 96);
QMXEXIF_CHECK_OFFSET(exposureTime, 100);
QMXEXIF_CHECK_OFFSET(exposureBias, 104);
QMXEXIF_CHECK_OFFSET(fNumber, 108);
QMXEXIF_CHECK_OFFSET(isoSpeed, 112);
QMXEXIF_CHECK_OFFSET(flashFired, 116);
QMXEXIF_CHECK_OFFSET(longText, 120);
QMXEXIF_CHECK_OFFSET(longTextCapacity, 128);
QMXEXIF_CHECK_OFFSET(shortText, 132);
QMXEXIF_CHECK_OFFSET(shortTextCapacity, 140);
QMXEXIF_CHECK_OFFSET(orientation, 144);
QMXEXIF_CHECK_OFFSET(reserved, 148);
QMXEXIF_CHECK_OFFSET(meteringMode, 164);
QMXEXIF_CHECK_OFFSET(whiteBalance, 168);
QMXEXIF_CHECK_OFFSET(maxAperture, 172);
QMXEXIF_CHECK_OFFSET(makeText, 176);
QMXEXIF_CHECK_OFFSET(lensText, 240);
QMXEXIF_CHECK_OFFSET(whiteBalanceText, 368);

/* What a callback receives. */
#define QMXEXIF_KIND_HEADING 1u /* label = the section's name, value = NULL */
#define QMXEXIF_KIND_ITEM 2u    /* label and value; a NULL value introduces the sub-items after it */

/* Receives one heading or item of ExifEnumInfo.
 *   kind   QMXEXIF_KIND_HEADING or QMXEXIF_KIND_ITEM
 *   label  the name of the section or item
 *   value  the item's text, or NULL
 *   user   the caller's value, unchanged
 * Both texts are valid only during the call.  Runs on the caller's thread; the result is ignored
 * and cannot stop the list. */
typedef INT_PTR(CALLBACK* ExifEnumCallback)(UINT32 kind, const WCHAR* label, const WCHAR* value,
                                            INT_PTR user);

/* Writes the file's small preview to `stream` and returns its texts.
 *   stream      receives a JPEG as found in the file, or a 24-bit BMP; may be NULL
 *   text        receives the one-line summary, a NUL, the multi-line description and a NUL; must
 *               hold QMXEXIF_TEXT_BUFFER_LENGTH characters; may be NULL
 *   textLength  1 or more when texts are wanted; it does not limit what is written
 * Fails, with `text` untouched, when the file has no metadata or, with a stream, no preview. */
UINT32 WINAPI ExifGetThumbsnail(const WCHAR* path, IStream* stream, WCHAR* text, INT32 textLength);

/* Writes the file's largest preview to `stream` (JPEG or 24-bit BMP; may be NULL).  Files named
 * .raw, .erf or .3fr are developed by the library itself.
 *   orientation  receives the Exif orientation 1..8, or QMXEXIF_INT_UNSET when the file gives
 *                none; untouched on failure and for developed files; may be NULL */
UINT32 WINAPI ExifGetPrimaryImageEx(const WCHAR* path, IStream* stream, UINT32* orientation);

/* ExifGetPrimaryImageEx without the orientation. */
UINT32 WINAPI ExifGetPrimaryImage(const WCHAR* path, IStream* stream);

/* The general form: preview, orientation and texts in one call.
 *   flag  0 = the small preview, anything else = the largest (and .erf/.3fr are developed)
 * The other arguments, each of which may be NULL, are those of the functions above. */
UINT32 WINAPI ExifGetThumbnailImage(const WCHAR* path, IStream* stream, UINT32* orientation,
                                    UINT32 flag, WCHAR* text, INT32 textLength);

/* Returns the texts only; arguments as for ExifGetThumbsnail. */
UINT32 WINAPI ExifGetInfoTip(const WCHAR* path, WCHAR* text, INT32 textLength);

/* Hands every decoded value to `callback` as labelled text, section by section.
 *   callback  may be NULL: the file is then only parsed
 *   user      passed to the callback
 * Returns 1, or 0xFFFFFFFF (and calls nothing) when the file has no metadata. */
UINT32 WINAPI ExifEnumInfo(const WCHAR* path, ExifEnumCallback callback, INT_PTR user);

/* Tells from a file's first bytes, its extension and, for TIFF, its first directory whether it is
 * a file of a kind that this library reads: 1 or 0. */
UINT32 WINAPI ExifIsExifFile(const WCHAR* path);

/* Copies the original date ("2008:07:31 12:34:56", as stored) to `text`, cut to `textLength`
 * characters.  A file with metadata but without that date gives success and an empty text.
 * Returns 0 with the buffer untouched when `text` is NULL or `textLength` below 1, and 0 with an
 * empty text when the file has no metadata. */
UINT32 WINAPI ExifGetDateTimeString(const WCHAR* path, WCHAR* text, INT32 textLength);

/* Fills the basic record (the first QMXEXIF_BASIC_INFO_SIZE bytes of `info`, nothing beyond) and
 * writes the small preview to `stream`.  Either may be NULL. */
UINT32 WINAPI ExifGetExifInfo(const WCHAR* path, IStream* stream, InfoRequest* info);

/* Fills the whole record; `stream`, `orientation` and `flag` as for ExifGetThumbnailImage.  With a
 * stream the call fails, and `request` stays as it was, when the file has no preview. */
UINT32 WINAPI ExifGetExifInfoEx(const WCHAR* path, IStream* stream, UINT32* orientation,
                                UINT32 flag, InfoRequest* request);

/* Does nothing and returns 0; kept because programs look its name up. */
UINT32 WINAPI ExifDrawDigiText(void);

#undef QMXEXIF_CHECK_OFFSET
#undef QMXEXIF_CHECK

#ifdef __cplusplus
}
#endif

#endif
