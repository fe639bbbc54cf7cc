#include "parse/core/output_stream.h"

namespace qmx {

void RewindStream(ParseContext& ctx) {
    const GuardPause pause(ctx.pageGuard);
    ctx.outStream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
}

void WriteToStream(ParseContext& ctx, const void* bytes, std::uint32_t length) {
    const GuardPause pause(ctx.pageGuard);
    ctx.outStream->Write(bytes, length, nullptr);
}

}  // namespace qmx
