// The texts of one maker, QMX_FUZZ_MAKER, from a record of any bytes: no decoder has to vouch for
// what stands in a record.  The input's first bytes are the texts' capacities.

#include <cstring>
#include <span>

#include "promises.h"

namespace {

using namespace qmx;

constexpr std::size_t kHeadBytes = 2;

struct Part {
    std::size_t start, size;
};

// The maker's area first: it is what the target is for.
constexpr std::size_t kBehind = offsetof(ImageInfo, hasGps);
constexpr Part kParts[] = {{offsetof(ImageInfo, makerFields), kMakerFieldsSize},
                           {0, offsetof(ImageInfo, makerFields)},
                           {kBehind, sizeof(ImageInfo) - kBehind}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHeadBytes) return 0;
    std::span<const std::uint8_t> rest(data + kHeadBytes, size - kHeadBytes);
    ImageInfo info = {};
    for (const Part& part : kParts) {
        const std::size_t length = std::min(rest.size(), part.size);
        if (length == 0) break;
        std::memcpy(reinterpret_cast<std::uint8_t*>(&info) + part.start, rest.data(), length);
        rest = rest.subspan(length);
    }
    info.makerId = QMX_FUZZ_MAKER;
    info.hasMakerNote = 1;
    fuzz::WordRecord(info, 1 + data[0] * 4, 1 + data[1]);
    return 0;
}
