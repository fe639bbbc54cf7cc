#pragma once
// A TIFF file with a MakerNote: a maker's header and a directory whose offsets count from the TIFF
// header, as most makers have it.

#include <string_view>

#include "support/tiff_builder.h"

namespace qmx::test {

class NoteFile {
public:
    // `header` has an even number of bytes.
    NoteFile(Order order, std::string_view make, std::string_view header)
        : tiff_(order), ifd_(tiff_.Ifd()), exif_(tiff_.SubIfd()), note_(tiff_.SubIfd()) {
        ifd_.Ascii(0x010F, make).Ascii(0x0110, "Model").Link(0x8769, {&exif_});
        // The value is the header alone; the directory stands right behind it.  What follows the
        // tag shows that the Exif directory goes on unharmed.
        exif_.Undefined(0x927C, FromText(header)).Long(0xA002, {kWidth}).Long(0xA003, {kHeight});
    }

    static constexpr std::uint32_t kWidth = 0x01020304;
    static constexpr std::uint32_t kHeight = 0x05060708;

    IfdBuilder& Ifd() { return ifd_; }
    IfdBuilder& Exif() { return exif_; }  // with inline values only
    IfdBuilder& Note() { return note_; }
    TiffBuilder& Tiff() { return tiff_; }
    Bytes Build() { return tiff_.Build(); }

private:
    TiffBuilder tiff_;
    IfdBuilder& ifd_;
    IfdBuilder& exif_;
    IfdBuilder& note_;
};

}  // namespace qmx::test
