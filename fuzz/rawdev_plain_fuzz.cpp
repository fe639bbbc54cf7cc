// Packings without compression, chosen by depth.

#include "rawdev_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qmx::test::RawForm form = qmx::fuzz::TakeForm(data, size);
    constexpr std::uint32_t kCompressions[] = {0, 1, 32769, 32773};
    form.compression = kCompressions[form.height % 4];
    qmx::fuzz::DevelopAs(form, data, size);
    return 0;
}
