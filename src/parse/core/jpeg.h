#pragma once
// What the library needs to know of JPEG streams: their markers (ITU-T T.81, annex B), the size in
// the frame header, the length of a stream.  Nothing is decoded.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

enum : std::uint8_t {
    kJpegSof0 = 0xC0,
    kJpegSof3 = 0xC3,
    kJpegRst0 = 0xD0,
    kJpegSoi = 0xD8,
    kJpegEoi = 0xD9,
    kJpegSos = 0xDA,
    kJpegApp1 = 0xE1,
};

struct JpegSegment {
    std::uint8_t marker;
    std::uint16_t length;  // counts its own two bytes
};

// Reads a marker and its segment's length.  False at the end of the file and at a byte that does
// not start a marker.
bool ReadJpegSegment(ParseContext& ctx, JpegSegment& segment);

// Behind a segment's length: goes to the next segment.
void SkipJpegSegment(ParseContext& ctx, const JpegSegment& segment);

// Walks the container's markers to the first APP1 segment; true when it holds Exif data, whose
// TIFF header then stands at the cursor.  Starts behind the start-of-image marker.  A marker below
// D0 ends the walk: tables and frame headers do not come before the metadata.
bool FindExifSegment(ParseContext& ctx);

// Takes width and height from the frame header of the JPEG stream at `position` into a record.
// False when there is none, or nobody wants a picture: then its page is left alone.  Leaves the
// cursor where it was.
bool ProbeJpegFrame(ParseContext& ctx, std::uint32_t position, ImageRecord& record);

// Length of the JPEG stream at `position` up to and including its end-of-image marker, or up to
// the end of the file when that is missing.  Leaves the cursor where it was.
std::uint32_t MeasureJpeg(ParseContext& ctx, std::uint32_t position);

}  // namespace qmx
