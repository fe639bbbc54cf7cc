#include "container_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return qmx::fuzz::ParseAs("FOVb", data, size);
}
