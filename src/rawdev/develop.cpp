#include "rawdev/develop.h"

#include "rawdev/pipeline.h"
#include "rawdev/shot_record.h"

namespace qmx {

std::uint32_t DevelopRawFile(const wchar_t* path, IStream* stream, std::uint32_t largerSize,
                             InfoRequest* info) {
    RawDecodeState state;
    const std::uint32_t written = RunRawPipeline(state, path, stream, largerSize != 0 ? 1 : 3);
    if (written != 0 && info != nullptr) FillShotRecord(state, *info);
    return written;
}

}  // namespace qmx
