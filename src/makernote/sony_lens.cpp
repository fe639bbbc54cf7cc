#include "makernote/sony_lens.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "makernote/sony_cipher.h"

namespace qmx {
namespace {

constexpr std::int32_t kNoAMountLens = 65535;  // an E-mount lens, or none that talks

// Where a layout keeps mount and lens ids (16 bits, little-endian), in bytes.
struct LensLayout {
    std::uint32_t mountAt;
    std::uint8_t eMount;      // the mount byte of an E-mount lens
    std::uint8_t aMounts[2];  // and those of an A-mount lens
    std::uint32_t eMountIdAt;
    std::uint32_t aMountIdAt;  // 0: not there
    bool enciphered = true;
};

constexpr LensLayout k9416 = {0x4A, 2, {1, 1}, 0x4B, 0x4D};
constexpr LensLayout k9405Early = {0x604, 2, {1, 1}, 0x605, 0x608};  // 2011 to 2014
constexpr LensLayout k9405Late = {0x5E, 2, {1, 1}, 0x60, 0x62};
constexpr LensLayout k940C = {0x08, 4, {1, 5}, 0x09, 0};
constexpr LensLayout k9050 = {0x105, 2, {1, 1}, 0x107, 0x109};
constexpr LensLayout kSettings = {0x99, 17, {16, 16}, 0x3F7, 0, false};

// The plain byte at a place of a block; -1 when block or file end before.
std::int32_t ByteAt(ParseContext& ctx, const SettingsBlock& block, std::uint32_t at,
                    bool enciphered) {
    if (at >= block.bytes) return -1;
    SeekTo(ctx, WrappingAdd(block.position, at));
    if (AtEnd(ctx)) return -1;
    return enciphered ? SonyPlainByte(*ctx.cursor) : *ctx.cursor;
}

// -1 when it is not there.
std::int32_t IdAt(ParseContext& ctx, const SettingsBlock& block, std::uint32_t at,
                  bool enciphered) {
    const std::int32_t low = ByteAt(ctx, block, at, enciphered);
    const std::int32_t high = ByteAt(ctx, block, at + 1, enciphered);
    return low < 0 || high < 0 ? -1 : high << 8 | low;
}

// A block speaks only when its mount byte is one that cameras write: programs that rewrite files
// shift blocks.
bool TakeLens(ParseContext& ctx, const SettingsBlock& block, const LensLayout& layout,
              SonyMakerFields& fields) {
    const std::int32_t mount = ByteAt(ctx, block, layout.mountAt, layout.enciphered);
    const bool isE = mount == layout.eMount;
    const bool isA = mount == layout.aMounts[0] || mount == layout.aMounts[1];
    const std::uint32_t at = isE ? layout.eMountIdAt : layout.aMountIdAt;
    if (!(isE || isA) || at == 0) return false;
    const std::int32_t id = IdAt(ctx, block, at, layout.enciphered);
    if (id < 0 || (isA && id == kNoAMountLens)) return false;
    fields.sonyLensId = id;
    fields.sonyMount = isE ? kSonyEMount : kSonyAMount;
    return true;
}

template <std::size_t Size>
bool IsOneOf(std::int32_t byte, const std::uint8_t (&bytes)[Size]) {
    return std::find(std::begin(bytes), std::end(bytes), byte) != std::end(bytes);
}

// The first byte, as stored, tells the layout.
bool TakeLens9405(ParseContext& ctx, const SettingsBlock& block, SonyMakerFields& fields) {
    constexpr std::uint8_t kEarly[] = {0x1B, 0x40, 0x7D};
    constexpr std::uint8_t kLate[] = {0x3A, 0xB3, 0x7E, 0x9A, 0x25, 0xE1, 0x76, 0x8B};
    const std::int32_t first = ByteAt(ctx, block, 0, false);
    if (IsOneOf(first, kEarly)) return TakeLens(ctx, block, k9405Early, fields);
    return IsOneOf(first, kLate) && TakeLens(ctx, block, k9405Late, fields);
}

bool ModelBeginsWith(const ImageInfo& info, std::string_view prefix) {
    return FieldText(info.cameraModel).starts_with(prefix);
}

// Cameras with a fixed lens write blocks of the same tags.
bool HasFixedLens(const ImageInfo& info) {
    return ModelBeginsWith(info, "DSC-") || ModelBeginsWith(info, "ZV-1");
}

// A-mount bodies have something else there.
bool TakeLens940C(ParseContext& ctx, const SettingsBlock& block, SonyMakerFields& fields) {
    for (const std::string_view prefix : {"NEX-", "ILCE-", "ILME-", "ZV-"})
        if (ModelBeginsWith(ctx.info, prefix)) return TakeLens(ctx, block, k940C, fields);
    return false;
}

// Only blocks of these lengths have the layout, and none of the cameras since 2020.
bool TakeLens9050(ParseContext& ctx, const SettingsBlock& block, SonyMakerFields& fields) {
    constexpr std::int32_t kFirstOther = 8575;
    return ctx.info.modelId < kFirstOther && (block.bytes == 944 || block.bytes == 3072) &&
           TakeLens(ctx, block, k9050, fields);
}

bool TakeLensOfSettings(ParseContext& ctx, const SettingsBlock& block, SonyMakerFields& fields) {
    return ModelBeginsWith(ctx.info, "NEX-") && (block.bytes == 1536 || block.bytes == 2048) &&
           TakeLens(ctx, block, kSettings, fields);
}

bool TakeFirstLens(ParseContext& ctx, const SonyLensBlocks& blocks, SonyMakerFields& fields) {
    const CursorScope restoreCursor(ctx);
    return TakeLens(ctx, blocks.block9416, k9416, fields) ||
           TakeLens9405(ctx, blocks.block9405, fields) ||
           TakeLens940C(ctx, blocks.block940C, fields) ||
           TakeLens9050(ctx, blocks.block9050, fields) ||
           TakeLensOfSettings(ctx, blocks.settings, fields);
}

}  // namespace

void FindSonyLens(ParseContext& ctx, const SonyLensBlocks& blocks, SonyMakerFields& fields) {
    const std::int32_t tagId = fields.sonyLensId;
    if (IsSet(tagId) && tagId != kNoAMountLens) {
        fields.sonyMount = kSonyAMount;
        return;
    }
    fields.sonyLensId = INT_UNSET;
    if (HasFixedLens(ctx.info) || TakeFirstLens(ctx, blocks, fields)) return;
    if (tagId != kNoAMountLens) return;
    fields.sonyLensId = 0;
    fields.sonyMount = kSonyEMount;
}

}  // namespace qmx
