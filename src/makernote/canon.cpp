// Canon's MakerNote: entries without a header, most of them arrays of words.

#include "makernote/canon_arrays.h"
#include "makernote/canon_fields.h"
#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "parse/core/entry_walk.h"

namespace qmx {
namespace {

using Fields = CanonMakerFields;

// More entries than any camera writes: not a note.
constexpr std::uint16_t kTooManyEntries = 256;

template <void (*Decode)(ParseContext& ctx, std::uint32_t count)>
void StoreArray(ParseContext& ctx, const DirEntry& entry, Fields&) {
    Decode(ctx, entry.count);
}

// Numbers beyond 31 bits exist; their bits are kept.
void StoreSerialNumber(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    fields.serialNumber = static_cast<std::int32_t>(ReadUnsigned(ctx, entry));
}

constexpr TagRow<Fields> kTags[] = {
    {0x0001, StoreArray<DecodeCanonCameraSettings>},
    {0x0002, StoreArray<DecodeCanonFocalLength>},
    {0x0004, StoreArray<DecodeCanonShotInfo>},
    {0x0005, StoreArray<DecodeCanonPanorama>},
    {0x0006, StoreText<&Fields::imageType>},
    {0x0007, StoreText<&Fields::firmwareVersion>},
    {0x0008, StoreInteger<&Fields::fileNumber>},
    {0x0009, StoreText<&Fields::ownerName>},
    {0x000C, StoreSerialNumber},
    {0x000D, StoreArray<DecodeCanonCameraInfo>},
    {0x0012, StoreArray<DecodeCanonAfInfo>},
    {0x001D, StoreArray<DecodeCanonTag1D>},
    {0x001F, StoreArray<DecodeCanonTag1F>},
    {0x0093, StoreArray<DecodeCanonFileInfo>},
    {0x0095, StoreText<&Fields::lensModel>},
    {0x00A0, StoreArray<DecodeCanonProcessingInfo>},
    {0x00B4, StoreInteger<&Fields::colorSpace>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseCanonMakerNote(ParseContext& ctx, std::uint32_t) {
    auto& fields = ResetMakerRecord<Fields>(ctx.info);
    const std::uint16_t count = ReadU16(ctx);
    if (count < kTooManyEntries) WalkTable(ctx, count, fields, kTags);
}

}  // namespace qmx
