// One kind of container, QMX_FUZZ_KIND: the input with its first bytes replaced by the kind's own.

#include <string_view>

#include "promises.h"

namespace {

using namespace std::string_view_literals;

enum Kind { ciff, jpeg, mrw, raf, tiff, x3f };

std::string_view MagicOf(Kind kind, bool isBigEndian) {
    switch (kind) {
        case ciff: return isBigEndian ? "MM\0\0\0\x1AHEAPCCDR"sv : "II\x1A\0\0\0HEAPCCDR"sv;
        case jpeg: return "\xFF\xD8"sv;
        case mrw: return "\0MRM"sv;
        case raf: return "FUJIFILM"sv;
        case tiff: return isBigEndian ? "MM"sv : "II"sv;
        default: return "FOVb"sv;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view magic = MagicOf(QMX_FUZZ_KIND, size != 0 && data[0] == 'M');
    qmx::test::Bytes file(data, data + size);
    std::copy_n(magic.begin(), std::min(magic.size(), size), file.begin());
    qmx::fuzz::ParseBothWays(file);
    return 0;
}
