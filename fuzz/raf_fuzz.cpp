#include "container_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace std::string_view_literals;
    return qmx::fuzz::ParseAs("FUJIFILM"sv, data, size);
}
