// One 16-bit word per sample in the file's byte order (TIFF 6.0, section 3: BitsPerSample 16).

#include "rawdev/loaders.h"
#include "rawdev/plain_rows.h"
#include "rawdev/unpack.h"

namespace qmx {
namespace {

std::uint64_t WordRow(const RawDecodeState& state) {
    return std::uint64_t{2} * SamplesPerRow(state);
}

bool LoadUnpacked16(RawDecodeState& state, CellSink& sink) {
    const bool bigEndian = state.file.bigEndian;
    return LoadRows(state, sink, WordRow(state),
                    [bigEndian](const std::uint8_t* src, std::uint32_t count, std::uint16_t* dst) {
                        UnpackWords(src, count, bigEndian, dst);
                    });
}

}  // namespace

const Loader kUnpacked16 = {LoadUnpacked16, WordRow, 0};

}  // namespace qmx
