// Panasonic's block code, in files of exactly the length that chooses it, whole and split.

#include "rawdev_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qmx::test::RawForm form = qmx::fuzz::TakeForm(data, size);
    form.make = "Panasonic";
    form.bits = 0;
    form.samplesPerPixel = 1;
    form.width = form.width / 14 * 14 + 14;
    if (size % 2 != 0)
        form.more = [](qmx::test::TiffBuilder&, qmx::test::IfdBuilder& ifd) {
            ifd.Short(45, {4}).Long(280, {0});
        };
    qmx::test::Bytes blocks(data, data + size);
    blocks.resize(std::size_t{form.width} * form.height / 14 * 16);
    qmx::fuzz::DevelopAs(form, blocks.data(), blocks.size());
    return 0;
}
