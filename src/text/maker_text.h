#pragma once
// What each maker adds to the texts, one row per maker.  A maker's part lives in
// text/<maker>_section.cpp and reads the maker's record; adding it is that file and one row.

#include <cstdint>

#include "parse/core/image_info.h"
#include "text/enum_context.h"
#include "text/text_buffer.h"

namespace qmx {

// Appends a wording and returns true, or returns false with nothing written.
using MakerWording = bool (*)(const ImageInfo& info, TextBuffer& dst);

// Every function may be null: the maker adds nothing there.  They are called only when
// `hasMakerNote` is set.
struct MakerText {
    std::uint32_t makerId;
    void (*emitSection)(const ImageInfo& info, const EnumContext& context);
    MakerWording lensText;
    MakerWording whiteBalanceText;  // takes the place of the Exif wording
    MakerWording summaryLine;       // one more line of the long text, label included
};

// The maker's row; for other makers one that adds nothing.
const MakerText& FindMakerText(std::uint32_t makerId);

}  // namespace qmx
