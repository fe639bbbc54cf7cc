#pragma once
// What must hold for any input, checked by every fuzz target and by the tests of damaged files.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"
#include "text/enumerate.h"
#include "text/summary.h"
#include "text/text_buffer.h"

namespace qmx::fuzz {

inline void Check(bool promise) {
    if (!promise) std::abort();
}

// Whether the text ends within `capacity` units.
inline bool Ends(const wchar_t* text, std::size_t capacity) {
    return std::find(text, text + capacity, L'\0') != text + capacity;
}

inline INT_PTR CALLBACK CheckItem(UINT32 kind, const WCHAR* label, const WCHAR* value,
                                  INT_PTR user) {
    auto& headed = *reinterpret_cast<bool*>(user);
    Check(kind == QMXEXIF_KIND_HEADING || (kind == QMXEXIF_KIND_ITEM && headed));
    Check(label != nullptr && label[0] != 0);
    Check(value == nullptr || Ends(value, kValueCapacity));
    headed = true;
    return 0;
}

// Every text of a record: terminated and within its bounds, which are exactly those of its memory.
inline void WordRecord(const ImageInfo& info, INT32 longCapacity = 1024,
                       INT32 shortCapacity = 255) {
    bool headed = false;
    EmitInfo(info, {CheckItem, reinterpret_cast<INT_PTR>(&headed)});
    InfoRequest request = {};
    const auto longText = std::make_unique<wchar_t[]>(static_cast<std::size_t>(longCapacity));
    const auto shortText = std::make_unique<wchar_t[]>(static_cast<std::size_t>(shortCapacity) + 1);
    request.longText = longText.get();
    request.longTextCapacity = longCapacity;
    request.shortText = shortText.get();
    request.shortTextCapacity = shortCapacity;
    BuildSummary(info, &request);
    Check(Ends(longText.get(), static_cast<std::size_t>(longCapacity)));
    Check(Ends(shortText.get(), static_cast<std::size_t>(shortCapacity) + 1));
    Check(Ends(request.modelText, std::size(request.modelText)));
    Check(Ends(request.makeText, std::size(request.makeText)));
    Check(Ends(request.lensText, std::size(request.lensText)));
    Check(Ends(request.whiteBalanceText, std::size(request.whiteBalanceText)));
}

// Most bytes of a picture that a file of this size can back: a coded sample takes a bit at least,
// and a bitmap row pads at most three bytes.
constexpr std::size_t MostPictureBytes(std::size_t fileSize) { return fileSize * 8 + 58; }

inline void CheckCursor(const ParseContext& ctx) {
    Check(ctx.cursor >= ctx.viewBase && ctx.cursor <= ctx.viewBase + ctx.fileSize);
}

// One whole file in memory.
inline void ParseOnce(const test::Bytes& file, bool wantPrimary) {
    test::BytesContext context(file);
    test::MemoryStream stream;
    ParseContext& ctx = context.ctx;
    ctx.outStream = &stream;
    const std::uint8_t parsed = ParseContainer(ctx, wantPrimary);
    Check(parsed <= 1);
    CheckCursor(ctx);
    Check((stream.writes != 0) == (ctx.thumbDone != 0) && stream.writes <= 1);
    Check(stream.bytes.size() <= MostPictureBytes(file.size()));
    Check(ctx.workBuffer == nullptr && ctx.imageRecords.size() == 0);
    if (parsed != 0) WordRecord(ctx.info);
}

inline void ParseBothWays(const test::Bytes& file) {
    ParseOnce(file, false);
    ParseOnce(file, true);
}

}  // namespace qmx::fuzz
