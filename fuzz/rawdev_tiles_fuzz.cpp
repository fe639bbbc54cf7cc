// Strips and tiles of DNG, uncompressed and lossless; tiles share the data.

#include "rawdev_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qmx::test::RawForm form = qmx::fuzz::TakeForm(data, size);
    if (size < 4) return 0;
    const std::uint32_t tileWidth = 1 + data[0];
    const std::uint32_t tileHeight = 1 + data[1];
    const std::uint32_t tiles = 1 + data[2] % 16;
    form.compression = data[3] % 2 == 0 ? 1 : 7;
    form.more = [&](qmx::test::TiffBuilder&, qmx::test::IfdBuilder& ifd) {
        ifd.Byte(50706, {1, data[3] / 2u % 2, 0, 0}).Long(322, {tileWidth}).Long(323, {tileHeight});
        // The data begin behind the directory.
        std::vector<std::uint32_t> offsets;
        for (std::uint32_t i = 0; i < tiles; ++i) offsets.push_back(700);
        ifd.Long(324, offsets).Short(50712, {0, 3, 900}).Short(50713, {2, 2});
        ifd.Short(50714, {1, 9, 30, 4}).Short(50829, {1, 1, 20, 40});
    };
    qmx::test::Bytes file = qmx::test::BuildRaw(form, {});
    file.resize(700);
    file.insert(file.end(), data + 4, data + size);
    qmx::fuzz::DevelopAll(file.data(), file.size());
    return 0;
}
