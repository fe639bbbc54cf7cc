// Raw development of a whole file: directories, rules, every loader, colours and the bitmap.

#include "rawdev_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qmx::fuzz::DevelopAll(data, size);
    return 0;
}
