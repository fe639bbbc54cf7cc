#pragma once
// One kind of container over one file in memory, without the texts, with the promises that hold for
// any of them.

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"

namespace qmx::fuzz {

inline void Check(bool promise) {
    if (!promise) std::abort();
}

inline void ParseOnce(const test::Bytes& file, bool wantPrimary) {
    test::BytesContext context(file);
    test::MemoryStream stream;
    ParseContext& ctx = context.ctx;
    ctx.outStream = &stream;
    Check(ParseContainer(ctx, wantPrimary) <= 1);
    Check(ctx.cursor >= ctx.viewBase && ctx.cursor <= ctx.viewBase + ctx.fileSize);
    Check((stream.writes != 0) == (ctx.thumbDone != 0) && stream.writes <= 1);
    Check(stream.bytes.size() <= file.size() * 8 + 58);
    Check(ctx.workBuffer == nullptr && ctx.imageRecords.size() == 0);
}

// The input with its first bytes replaced by the container's own.
inline int ParseAs(std::string_view magic, const std::uint8_t* data, std::size_t size) {
    test::Bytes file(data, data + size);
    std::copy_n(magic.begin(), std::min(magic.size(), size), file.begin());
    ParseOnce(file, false);
    ParseOnce(file, true);
    return 0;
}

}  // namespace qmx::fuzz
