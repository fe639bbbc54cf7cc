// Minolta's MakerNote: entries without a header in the file's byte order, and the settings as one
// block of words.

#include "makernote/alpha_note.h"
#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/minolta_settings.h"
#include "makernote/preview_record.h"
#include "parse/core/jpeg.h"

namespace qmx {
namespace {

using Fields = MinoltaMakerFields;

// One directory being read.
struct MinoltaNote {
    Fields& fields;
    MinoltaSettings settingsKind = MinoltaSettings::kNone;
    SettingsBlock settings = {};
    std::uint32_t previewOffset = 0;
    std::uint32_t previewLength = 0;
};

// Some entries are there without a value.
template <auto Field>
void StoreNumber(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    if (entry.count != 0) note.fields.*Field = ReadInteger(ctx, entry);
}

template <auto Field>
void StoreSigned(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    if (entry.count != 0) note.fields.*Field = ReadSigned(ctx, entry);
}

template <auto Field>
void StoreUnsigned(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    note.*Field = ReadUnsigned(ctx, entry);
}

template <MinoltaSettings Kind>
void NoteSettings(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    note.settingsKind = Kind;
    note.settings = SettingsBlockHere(ctx, entry.count);
}

// One tag serves two cameras, told apart by the block's length.
void NoteLateSettings(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    constexpr std::uint32_t k5DBytes = 448;
    constexpr std::uint32_t kA100Bytes = 260;
    if (entry.count == k5DBytes) NoteSettings<MinoltaSettings::k5D>(ctx, entry, note);
    if (entry.count == kA100Bytes) NoteSettings<MinoltaSettings::kA100>(ctx, entry, note);
}

// The cameras whose stabiliser writes a block of data when it works; others keep more there.
void StoreStabilizerBlock(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    const std::int32_t model = ctx.info.modelId;
    if (model == kMinoltaA1 || model == kMinoltaA2 || model == kMinoltaX1) {
        note.fields.minoltaStabilizer = entry.count > 4 ? 1 : 0;
    }
}

void StoreInlinePreview(ParseContext& ctx, const DirEntry& entry, MinoltaNote&) {
    AddAlphaPreview(ctx, Position(ctx), entry.count);
}

// Cameras that repeat the quality there, or something unknown.
void StoreImageSize(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    const std::int32_t model = ctx.info.modelId;
    if (model == kMinolta7Hi || model == kMinoltaA2 || model == kMinoltaA200) return;
    StoreNumber<&Fields::minoltaImageSizeTag>(ctx, entry, note);
}

void StoreFlashComp(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    note.fields.minoltaFlashComp = ReadStops(ctx, entry);
}

void StoreRawJpeg(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    if (ctx.info.modelId == kMinolta5D) StoreNumber<&Fields::minoltaRawJpeg>(ctx, entry, note);
}

void StoreColorTemp(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    const std::int32_t kelvin = ReadInteger(ctx, entry);
    if (kelvin != 0) note.fields.minoltaColorTemp = kelvin;
}

void StoreWhiteBalance(ParseContext& ctx, const DirEntry& entry, MinoltaNote& note) {
    if (entry.count != 0)
        note.fields.minoltaWhiteBalance = MinoltaTagWhiteBalance(ReadInteger(ctx, entry));
}

constexpr TagRow<MinoltaNote> kTags[] = {
    {0x0001, NoteSettings<MinoltaSettings::kCompact>},
    {0x0003, NoteSettings<MinoltaSettings::kCompact>},
    {0x0004, NoteSettings<MinoltaSettings::k7D>},
    {0x0018, StoreStabilizerBlock},
    {0x0081, StoreInlinePreview},
    {0x0088, StoreUnsigned<&MinoltaNote::previewOffset>},
    {0x0089, StoreUnsigned<&MinoltaNote::previewLength>},
    {0x0100, StoreNumber<&Fields::minoltaSceneMode>},
    {0x0101, StoreNumber<&Fields::minoltaColorMode>},
    {0x0102, StoreNumber<&Fields::minoltaQuality>},
    {0x0103, StoreImageSize},
    {0x0104, StoreFlashComp},
    {0x0105, StoreNumber<&Fields::minoltaTeleconverter>},
    {0x0107, StoreNumber<&Fields::minoltaStabilizer2>},
    {0x0109, StoreRawJpeg},
    {0x010A, StoreNumber<&Fields::minoltaZoneMatching>},
    {0x010B, StoreColorTemp},
    {0x010C, StoreNumber<&Fields::minoltaLensId>},
    {0x0111, StoreSigned<&Fields::minoltaColorFilter>},
    {0x0112, StoreSigned<&Fields::minoltaWbFineTune>},
    {0x0113, StoreNumber<&Fields::minoltaStabilizer3>},
    {0x0114, NoteLateSettings},
    {0x0115, StoreWhiteBalance},
};
static_assert(TagsAscend(kTags));

}  // namespace

void AddAlphaPreview(ParseContext& ctx, std::int32_t position, std::uint32_t length) {
    constexpr std::uint32_t kShortestPicture = 256;  // some cameras write a stub
    const CursorScope restoreCursor(ctx);
    SeekTo(ctx, position);
    if (length < kShortestPicture || BytesLeft(ctx) < length) return;
    AddJpegPreview(ctx, static_cast<std::uint32_t>(Position(ctx)), length);
}

float ReadStops(ParseContext& ctx, const DirEntry& entry) {
    if (entry.count == 0) return FLOAT_UNSET;
    if (entry.type == kTypeSRational || entry.type == kTypeRational) {
        const CursorScope restoreCursor(ctx);
        ReadU32(ctx);
        if (ReadU32(ctx) == 0) return FLOAT_UNSET;
    }
    return ReadFloat(ctx, entry);
}

void ReadMinoltaDirectory(ParseContext& ctx, std::uint32_t base, MinoltaMakerFields& fields) {
    MinoltaNote note = {fields};
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, kTags);
    ReadMinoltaSettings(ctx, note.settingsKind, note.settings, fields);
    AddAlphaPreview(ctx, WrappingAdd(static_cast<std::int32_t>(base), note.previewOffset),
                    note.previewLength);
}

void ParseMinoltaMakerNote(ParseContext& ctx, std::uint32_t ifdBase) {
    ReadMinoltaDirectory(ctx, ifdBase, ResetMakerRecord<Fields>(ctx.info));
}

}  // namespace qmx
