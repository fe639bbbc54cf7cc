#pragma once
// A TIFF file with a MakerNote: a maker's header and a directory whose offsets count from the TIFF
// header, as most makers have it.  A note without a header is the first directory of the file.

#include <string_view>

#include "support/tiff_builder.h"

namespace qmx::test {

class NoteFile {
public:
    // `header` has an even number of bytes, more than 4, or none.
    NoteFile(Order order, std::string_view make, std::string_view header,
             std::string_view model = "Model")
        : tiff_(order),
          headless_(header.empty() ? &tiff_.SubIfd() : nullptr),
          ifd_(tiff_.Ifd()),
          exif_(tiff_.SubIfd()),
          note_(headless_ != nullptr ? *headless_ : tiff_.SubIfd()) {
        ifd_.Ascii(0x010F, make).Ascii(0x0110, model).Link(0x8769, {&exif_});
        // The value is the header alone; the directory stands right behind it.  What follows the
        // tag shows that the Exif directory goes on unharmed.
        headless_ != nullptr ? exif_.Raw(0x927C, 7, 1000, kTiffHeader)
                             : exif_.Undefined(0x927C, FromText(header));
        exif_.Long(0xA002, {kWidth}).Long(0xA003, {kHeight});
    }

    static constexpr std::uint32_t kWidth = 0x01020304;
    static constexpr std::uint32_t kHeight = 0x05060708;

    // One with the note as its value, whatever that is.
    static Bytes Build(Order order, std::string_view make, std::string_view model,
                       const Bytes& note) {
        TiffBuilder tiff(order);
        IfdBuilder& ifd = tiff.Ifd();
        IfdBuilder& exif = tiff.SubIfd();
        ifd.Ascii(0x010F, make).Ascii(0x0110, model).Link(0x8769, {&exif});
        exif.Undefined(0x927C, note).Long(0xA002, {kWidth}).Long(0xA003, {kHeight});
        return tiff.Build();
    }

    IfdBuilder& Ifd() { return ifd_; }
    IfdBuilder& Exif() { return exif_; }  // with inline values only
    IfdBuilder& Note() { return note_; }
    TiffBuilder& Tiff() { return tiff_; }
    Bytes Build() { return tiff_.Build(); }

private:
    static constexpr std::uint32_t kTiffHeader = 8;

    TiffBuilder tiff_;
    IfdBuilder* headless_;
    IfdBuilder& ifd_;
    IfdBuilder& exif_;
    IfdBuilder& note_;
};

}  // namespace qmx::test
