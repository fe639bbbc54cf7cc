// Lossless JPEG as one stream.

#include "rawdev_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qmx::test::RawForm form = qmx::fuzz::TakeForm(data, size);
    form.compression = 7;
    qmx::fuzz::DevelopAs(form, data, size);
    return 0;
}
