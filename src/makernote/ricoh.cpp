// Ricoh's MakerNote: a big-endian directory, whatever the file's byte order; most of what it tells
// stands in one block of bytes.

#include <algorithm>
#include <iterator>

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/preview_record.h"
#include "makernote/ricoh_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = RicohMakerFields;

// The image-information block: places of its values, words and bytes.
constexpr std::size_t kWidth = 0;
constexpr std::size_t kHeight = 2;
constexpr std::size_t kPreviewOffset = 28;
constexpr std::size_t kPreviewLength = 30;
constexpr std::size_t kFlashMode = 32;
constexpr std::size_t kMacro = 33;
constexpr std::size_t kSharpness = 34;
constexpr std::size_t kWhiteBalance = 38;
constexpr std::size_t kIsoSetting = 39;
constexpr std::size_t kImageSetting = 40;
constexpr std::size_t kToning = 41;
constexpr std::size_t kBlockBytes = 42;

// Image settings without colour, of which the camera can tone both.
constexpr std::int32_t kBlackAndWhite = 3;
constexpr std::int32_t kToned = 6;

// As much of the block as the note has; what is beyond stays unset.
struct ImageBlock {
    std::uint8_t bytes[kBlockBytes];
    std::size_t size;

    std::int32_t Byte(std::size_t at) const { return at < size ? bytes[at] : INT_UNSET; }
    std::int32_t Word(std::size_t at) const {
        return at + 1 < size ? bytes[at] << 8 | bytes[at + 1] : INT_UNSET;
    }
};

// Of the preview's position only the low word is kept.
void AddPreview(ParseContext& ctx, const ImageBlock& block) {
    const std::int32_t offset = block.Word(kPreviewOffset);
    const std::int32_t length = block.Word(kPreviewLength);
    if (!IsSet(length) || offset == 0) return;
    AddJpegPreview(ctx, ctx.tiffBase + static_cast<std::uint32_t>(offset),
                   static_cast<std::uint32_t>(length));
}

void StoreImageBlock(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    if (entry.type == kTypeShort) return;  // later cameras: the exposure program
    ImageBlock block;
    block.size = ReadBytes(ctx, block.bytes, std::min<std::size_t>(entry.count, kBlockBytes));
    fields.width = block.Word(kWidth);
    fields.height = block.Word(kHeight);
    fields.flashMode = block.Byte(kFlashMode);
    fields.macro = block.Byte(kMacro);
    if (kSharpness < block.size) fields.sharpness = block.Byte(kSharpness);
    fields.whiteBalance = block.Byte(kWhiteBalance);
    fields.isoSetting = block.Byte(kIsoSetting);
    fields.imageSetting = block.Byte(kImageSetting);
    // The byte means something with these alone.
    if (fields.imageSetting == kBlackAndWhite || fields.imageSetting == kToned)
        fields.toning = block.Byte(kToning);
    AddPreview(ctx, block);
}

// The block's value is the better one; short words are the white balance of later cameras.
void StoreSharpness(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    if (entry.type != kTypeShort && !IsSet(fields.sharpness))
        fields.sharpness = ReadInteger(ctx, entry);
}

constexpr TagRow<Fields> kTags[] = {
    {0x1001, StoreImageBlock},
    {0x1003, StoreSharpness},
};
static_assert(TagsAscend(kTags));

// INT_UNSET for the automatic settings.
std::int32_t IsoSpeed(std::int32_t setting) {
    constexpr std::int32_t kSpeeds[] = {INT_UNSET, 64,  100,  INT_UNSET, 200,  INT_UNSET,
                                        400,       800, 1600, INT_UNSET, 3200, 100};
    return setting >= 0 && setting < std::ssize(kSpeeds) ? kSpeeds[setting] : INT_UNSET;
}

}  // namespace

void ParseRicohMakerNote(ParseContext& ctx, std::uint32_t) {
    Fields& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, fields, kTags);
    if (!IsSet(ctx.info.isoSpeed)) ctx.info.isoSpeed = IsoSpeed(fields.isoSetting);
}

}  // namespace qmx
