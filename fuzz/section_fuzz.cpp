// The texts of one maker, QMX_FUZZ_MAKER, from a record of any bytes: no decoder has to vouch for
// what stands in a record.  The input's first bytes are the texts' capacities.

#include <cstring>

#include "promises.h"

namespace {

using namespace qmx;

constexpr std::size_t kHeadBytes = 2;

// As it is in ImageInfo, where readers set one byte to 0 or 1.
void Normalise(ImageInfo& info) {
    info.makerId = QMX_FUZZ_MAKER;
    info.hasMakerNote = 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHeadBytes) return 0;
    // The maker's area first: it is what the target is for.
    ImageInfo info = {};
    std::memcpy(info.makerFields, data + kHeadBytes,
                std::min(size - kHeadBytes, sizeof info.makerFields));
    if (size > kHeadBytes + sizeof info.makerFields) {
        const std::size_t rest = size - kHeadBytes - sizeof info.makerFields;
        std::memcpy(static_cast<void*>(&info), data + kHeadBytes + sizeof info.makerFields,
                    std::min(rest, offsetof(ImageInfo, makerFields)));
    }
    Normalise(info);
    fuzz::WordRecord(info, 1 + data[0] * 4, 1 + data[1]);
    return 0;
}
