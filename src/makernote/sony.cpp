// Sony's MakerNote: entries in the file's byte order with offsets from the TIFF header; settings
// and lens in blocks of their own.

#include "makernote/alpha_note.h"
#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/minolta_settings.h"
#include "makernote/sony_lens.h"
#include "makernote/sony_settings.h"

namespace qmx {
namespace {

using Fields = SonyMakerFields;

// One note being read.
struct SonyNote {
    Fields& fields;
    std::uint32_t ifdBase;
    SonyLensBlocks blocks = {};
};

// All ones say "not available".
constexpr std::int32_t kNoWord = 0xFFFF;

bool IsAvailable(const DirEntry& entry, double value) {
    if (entry.type == kTypeShort) return value != kNoWord;
    return entry.type != kTypeLong || value != 0xFFFFFFFF;
}

template <auto Field>
void StoreCode(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    const double value = ReadValue(ctx, entry.type);
    if (entry.count != 0 && IsAvailable(entry, value)) note.fields.*Field = TruncateToI32(value);
}

template <auto Field>
void StoreSigned(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    if (entry.count != 0) note.fields.*Field = ReadSigned(ctx, entry);
}

template <auto First, auto Second>
void StoreSignedPair(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    if (entry.count < 2) return;
    note.fields.*First = ReadSigned(ctx, entry);
    note.fields.*Second = ReadSigned(ctx, entry);
}

template <auto Field>
void NoteBlock(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    note.blocks.*Field = SettingsBlockHere(ctx, entry.count);
}

void StoreFlashComp(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    note.fields.sonyFlashComp = ReadStops(ctx, entry);
}

// A block of its own header and a JPEG.
void StorePreview(ParseContext& ctx, const DirEntry& entry, SonyNote&) {
    constexpr std::uint32_t kHeaderBytes = 32;
    if (entry.count > kHeaderBytes)
        AddAlphaPreview(ctx, WrappingAdd(Position(ctx), kHeaderBytes), entry.count - kHeaderBytes);
}

void StoreHdr(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    const std::int32_t level = ReadU16(ctx);
    if (entry.count == 0 || level == kNoWord) return;
    note.fields.sonyHdr = level;
    note.fields.sonyHdrImage = ReadU16(ctx);
}

void StoreQualityPair(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    if (entry.count < 2) return;
    const std::int32_t raw = ReadU16(ctx);
    const std::int32_t jpeg = ReadU16(ctx);
    if (raw != kNoWord && jpeg != kNoWord) note.fields.sonyQuality2 = raw * 256 + jpeg;
}

void StoreFileFormat(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    if (entry.count >= 4) note.fields.sonyFileFormat = static_cast<std::int32_t>(ReadU32BE(ctx));
}

void StoreCreativeStyle(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    ReadString(ctx, note.fields.sonyCreativeStyle, entry.count);
}

void StoreLensSpec(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    if (entry.count == sizeof note.fields.sonyLensSpec && BytesLeft(ctx) >= entry.count)
        ReadBytes(ctx, note.fields.sonyLensSpec, entry.count);
}

// A signed word whatever its type.  All ones are -1/3 EV where the type is signed too, but nothing
// on the A100.
void StoreFlashLevel(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    if (entry.count == 0) return;
    const auto level = static_cast<std::int16_t>(ReadU16(ctx));
    const bool mayBeNothing = entry.type == kTypeShort || ctx.info.modelId == kSonyA100;
    if (level != -1 || !mayBeNothing) note.fields.sonyFlashLevel = level;
}

// Kinds of white balance as Sony's tag of the same number has them.
std::int32_t WhiteBalanceOfMinolta(std::int32_t code) {
    constexpr std::int32_t kColorTemperature = 1;
    constexpr std::int32_t kCustom = 112;
    if (code == MinoltaTagWhiteBalance(kColorTemperature)) return kColorTemperature;
    return code == 0x200 ? kCustom : code;
}

template <class Value>
void KeepFrom(Value& field, Value value) {
    if (!IsSet(field)) field = value;
}

// What the A100 writes in Minolta's way; both makers' codes are the same except where the record
// has a Minolta field.
void KeepMinoltaFields(const MinoltaMakerFields& from, Fields& into) {
    KeepFrom(into.sonyQuality, from.minoltaQuality);
    KeepFrom(into.sonySceneMode, from.minoltaSceneMode);
    KeepFrom(into.sonyFlashComp, from.minoltaFlashComp);
    KeepFrom(into.sonyTeleconverter, from.minoltaTeleconverter);
    KeepFrom(into.sonyZoneMatching, from.minoltaZoneMatching);
    KeepFrom(into.sonyColorTemp, from.minoltaColorTemp);
    KeepFrom(into.sonyColorFilter, from.minoltaColorFilter);
    KeepFrom(into.sonyWbFineTune, from.minoltaWbFineTune);
    KeepFrom(into.sonyStabilizer, from.minoltaStabilizer3);
    KeepFrom(into.sonyLensId, from.minoltaLensId);
    KeepFrom(into.sonyExposureCompSet, from.minoltaExposureComp);
    KeepFrom(into.minoltaExposureMode, from.minoltaExposureMode);
    KeepFrom(into.minoltaDriveModeA100, from.minoltaDriveModeA100);
    KeepFrom(into.minoltaFocusModeA100, from.minoltaFocusModeA100);
    KeepFrom(into.sonyWhiteBalance, WhiteBalanceOfMinolta(from.minoltaWhiteBalance));
}

// The offset of a directory outside the note; 0 for none.
void EnterMinoltaPart(ParseContext& ctx, const DirEntry& entry, SonyNote& note) {
    const std::uint32_t offset = ReadUnsigned(ctx, entry);
    if (offset == 0 || ctx.info.modelId != kSonyA100) return;
    MinoltaMakerFields fields;
    SeekTo(ctx, WrappingAdd(static_cast<std::int32_t>(note.ifdBase), offset));
    ReadMinoltaDirectory(ctx, note.ifdBase, fields);
    KeepMinoltaFields(fields, note.fields);
}

constexpr TagRow<SonyNote> kTags[] = {
    {0x0102, StoreCode<&Fields::sonyQuality>},
    {0x0104, StoreFlashComp},
    {0x0105, StoreCode<&Fields::sonyTeleconverter>},
    {0x0112, StoreSigned<&Fields::sonyWbFineTune>},
    {0x0114, NoteBlock<&SonyLensBlocks::settings>},
    {0x0115, StoreCode<&Fields::sonyWhiteBalance>},
    {0x2001, StorePreview},
    {0x2002, StoreCode<&Fields::sonyRating>},
    {0x2004, StoreCode<&Fields::sonyContrast>},
    {0x2005, StoreCode<&Fields::sonySaturation>},
    {0x2006, StoreCode<&Fields::sonySharpness>},
    {0x2007, StoreCode<&Fields::sonyBrightness>},
    {0x2008, StoreCode<&Fields::sonyLongExposureNr>},
    {0x2009, StoreCode<&Fields::sonyHighIsoNr>},
    {0x200A, StoreHdr},
    {0x200B, StoreCode<&Fields::sonyMultiFrameNr>},
    {0x200E, StoreCode<&Fields::sonyPictureEffect>},
    {0x200F, StoreCode<&Fields::sonySoftSkin>},
    {0x2011, StoreCode<&Fields::sonyVignetting>},
    {0x2012, StoreCode<&Fields::sonyChromatic>},
    {0x2013, StoreCode<&Fields::sonyDistortion>},
    {0x2014, StoreSignedPair<&Fields::sonyWbShiftAmber, &Fields::sonyWbShiftMagenta>},
    {0x2016, StoreCode<&Fields::sonyAutoPortraitFramed>},
    {0x2017, StoreCode<&Fields::sonyFlashAction>},
    {0x201A, StoreCode<&Fields::sonyElectronicFirstCurtain>},
    {0x201B, StoreCode<&Fields::sonyFocusMode2>},
    {0x201C, StoreCode<&Fields::sonyAfAreaMode2>},
    {0x2021, StoreCode<&Fields::sonyAfTracking>},
    {0x2029, StoreCode<&Fields::sonyRawFileType>},
    {0x202B, StoreCode<&Fields::sonyAwbPriority>},
    {0x202C, StoreCode<&Fields::sonyMetering2>},
    {0x202E, StoreQualityPair},
    {0x9050, NoteBlock<&SonyLensBlocks::block9050>},
    {0x9405, NoteBlock<&SonyLensBlocks::block9405>},
    {0x940C, NoteBlock<&SonyLensBlocks::block940C>},
    {0x9416, NoteBlock<&SonyLensBlocks::block9416>},
    {0xB000, StoreFileFormat},
    {0xB020, StoreCreativeStyle},
    {0xB021, StoreCode<&Fields::sonyColorTemp>},
    {0xB022, StoreSigned<&Fields::sonyColorFilter>},
    {0xB023, StoreCode<&Fields::sonySceneMode>},
    {0xB024, StoreCode<&Fields::sonyZoneMatching>},
    {0xB025, StoreCode<&Fields::sonyDro>},
    {0xB026, StoreCode<&Fields::sonyStabilizer>},
    {0xB027, StoreCode<&Fields::sonyLensId>},
    {0xB028, EnterMinoltaPart},
    {0xB029, StoreCode<&Fields::sonyColorMode>},
    {0xB02A, StoreLensSpec},
    {0xB02B, StoreSignedPair<&Fields::sonyFullImageHeight, &Fields::sonyFullImageWidth>},
    {0xB040, StoreCode<&Fields::sonyMacro>},
    {0xB041, StoreCode<&Fields::sonyExposureMode>},
    {0xB042, StoreCode<&Fields::sonyFocusMode>},
    {0xB043, StoreCode<&Fields::sonyAfAreaMode>},
    {0xB044, StoreCode<&Fields::sonyAfIlluminator>},
    {0xB047, StoreCode<&Fields::sonyJpegQuality>},
    {0xB048, StoreFlashLevel},
    {0xB049, StoreCode<&Fields::sonyReleaseMode>},
    {0xB04A, StoreCode<&Fields::sonySequenceNumber>},
    {0xB04B, StoreCode<&Fields::sonyAntiBlur>},
    {0xB04F, StoreCode<&Fields::sonyDro2>},
    {0xB050, StoreCode<&Fields::sonyHighIsoNr2>},
    {0xB052, StoreCode<&Fields::sonyIntelligentAuto>},
    {0xB054, StoreCode<&Fields::sonyWhiteBalance2>},
};
static_assert(TagsAscend(kTags));

}  // namespace

void ParseSonyMakerNote(ParseContext& ctx, std::uint32_t ifdBase) {
    SonyNote note = {ResetMakerRecord<Fields>(ctx.info), ifdBase};
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, kTags);
    ReadSonySettings(ctx, note.blocks.settings, note.fields);
    FindSonyLens(ctx, note.blocks, note.fields);
}

}  // namespace qmx
