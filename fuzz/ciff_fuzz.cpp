#include "container_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace std::string_view_literals;
    const bool isBigEndian = size != 0 && data[0] == 'M';
    return qmx::fuzz::ParseAs(isBigEndian ? "MM\0\0\0\x1AHEAPCCDR"sv : "II\x1A\0\0\0HEAPCCDR"sv,
                              data, size);
}
