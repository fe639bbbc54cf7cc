// The sections of an X3F file: the input is one image section and a property list.  Its first byte
// says where they part and of which kind the picture is.

#include "promises.h"
#include "support/x3f_builder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qmx;
    if (size < 6) return 0;
    constexpr std::uint32_t kFormats[] = {3, 11, 18, 11};
    const auto part = static_cast<std::ptrdiff_t>((size - 6) * (data[0] & 0x3F) / 0x3F);
    const auto rowBytes = data[0] >= 0xC0 ? 0u : std::uint32_t{data[3]};
    const test::Bytes rest(data + 6, data + size);
    const test::X3fPicture picture = {2,        kFormats[data[0] >> 6],
                                      data[1],  data[2],
                                      rowBytes, test::Bytes(rest.begin(), rest.begin() + part)};
    test::Bytes properties = test::PropertyList({{"CAMMANUF", "SIGMA"}});
    if (data[4] != 0) {
        properties.resize(24);
        properties[8] = data[4];  // the number of pairs
        properties.insert(properties.end(), rest.begin() + part, rest.end());
    }
    test::X3fBuilder file;
    file.version = data[5] % 2 == 0 ? 0x20000 : 0x20001;
    file.extended = test::Bytes(rest.begin(), rest.begin() + std::min<std::ptrdiff_t>(part, 192));
    file.extended.resize(data[5] % 2 == 0 ? 0 : 192);
    fuzz::ParseBothWays(
        file.Section("IMAG", test::ImageSection(picture)).Section("PROP", properties).Build());
    return 0;
}
