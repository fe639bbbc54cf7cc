#pragma once
// Builds X3F files in memory: header, sections, directory.

#include <string_view>
#include <utility>
#include <vector>

#include "support/tiff_builder.h"

namespace qmx::test {

using Properties = std::vector<std::pair<std::string_view, std::string_view>>;

// The bytes of a property list.
Bytes PropertyList(const Properties& properties);

// The bytes of an image section.
struct X3fPicture {
    std::uint32_t type = 2;
    std::uint32_t format = 3;
    std::uint32_t columns = 0, rows = 0, rowBytes = 0;
    Bytes data = {};
};
Bytes ImageSection(const X3fPicture& picture);

// The data of format 11 for RGB pixels: difference 0 has the code 0, d the code 1 and 8 bits of d.
Bytes CodedPixels(std::uint32_t columns, std::uint32_t rows, const Bytes& pixels);

// Texts of 32 bytes, types and values of the adjustments; 192 bytes at least.
Bytes ExtendedHeader(const std::vector<std::string_view>& texts, Bytes types,
                     const std::vector<float>& values);

class X3fBuilder {
public:
    std::uint32_t version = 0x20000;
    std::uint32_t columns = 2268, rows = 1512, rotation = 0;
    Bytes extended = {};

    X3fBuilder& Section(std::string_view type, Bytes bytes);
    Bytes Build() const;

private:
    std::vector<std::pair<std::string_view, Bytes>> sections_;
};

}  // namespace qmx::test
