// Everything the library says about one file, gathered for printing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "library.h"
#include "preview.h"

namespace qmx {

struct ListLine {
    bool isHeading;
    bool hasValue;  // false for headings and for items that introduce sub-items
    std::wstring label;
    std::wstring value;
};

struct Photo {
    std::wstring path;
    std::wstring error;  // why nothing could be read; empty when the rest is valid
    InfoRequest info = {};
    std::uint32_t storedOrientation = QMXEXIF_INT_UNSET;  // 1..8 or unset
    std::wstring shortText;  // as delivered, with its blanks at both ends
    std::wstring longText;
    std::vector<ListLine> list;
    Preview preview;  // the small one
};

// Which of the slower parts to read besides record and texts.
struct PhotoParts {
    bool list = true;
    bool preview = true;
};

// A failure, want of memory for this one file included, is told by `error`.
Photo ReadPhoto(const Library& library, const std::wstring& path, PhotoParts parts);

// The largest preview, kNone when the file has none.  Throws bad_alloc.
Preview ReadPrimary(const Library& library, const std::wstring& path);

}  // namespace qmx
