// The paired lossless code.

#include "rawdev_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qmx::test::RawForm form = qmx::fuzz::TakeForm(data, size);
    form.compression = 7;
    form.make = "Hasselblad";
    qmx::fuzz::DevelopAs(form, data, size);
    return 0;
}
