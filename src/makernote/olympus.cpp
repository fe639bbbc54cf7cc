// Olympus' MakerNote: a main directory, from 2003 on with directories of its own.  Old notes count
// offsets from the TIFF header, new ones from the note's start; either way that base is set here.

#include <cmath>

#include "makernote/decoders.h"
#include "makernote/maker_record.h"
#include "makernote/olympus_directories.h"
#include "makernote/preview_record.h"

namespace qmx {
namespace {

using Fields = OlympusMakerFields;
using Note = OlympusNote;

// TIFF's type for the offset of a directory.
constexpr std::uint16_t kTypeIfd = 13;

// The exposure words are APEX numbers.  An empty rational reads as 0 and says nothing.
template <class Value>
void FillFromApex(ParseContext& ctx, const DirEntry& entry, Value ImageInfo::*field,
                  Value (*fromApex)(double)) {
    const double apex = ReadValue(ctx, entry.type);
    if (!IsSet(ctx.info.*field) && apex != 0.0) ctx.info.*field = fromApex(apex);
}

void FillShutterSpeed(ParseContext& ctx, const DirEntry& entry, Note&) {
    FillFromApex<float>(ctx, entry, &ImageInfo::shutterSpeed,
                        [](double apex) { return ToField(std::exp2(-apex)); });
}

void FillIsoSpeed(ParseContext& ctx, const DirEntry& entry, Note&) {
    constexpr double kHighest = 1.0e9;  // far above any film or sensor
    FillFromApex<std::int32_t>(ctx, entry, &ImageInfo::isoSpeed, [](double apex) {
        const double speed = 100.0 * std::exp2(apex - 5.0) + 0.5;
        return speed >= 1.0 && speed <= kHighest ? TruncateToI32(speed) : INT_UNSET;
    });
}

void FillAperture(ParseContext& ctx, const DirEntry& entry, Note&) {
    FillFromApex<float>(ctx, entry, &ImageInfo::aperture,
                        [](double apex) { return ToField(std::exp2(apex / 2)); });
}

void FillBrightness(ParseContext& ctx, const DirEntry& entry, Note&) {
    FillFromApex<float>(ctx, entry, &ImageInfo::brightness, ToField);
}

void FillExposureBias(ParseContext& ctx, const DirEntry& entry, Note&) {
    FillFromApex<float>(ctx, entry, &ImageInfo::exposureBias, ToField);
}

// The value itself is the JPEG stream.
void AddInlinePreview(ParseContext& ctx, const DirEntry& entry, Note&) {
    AddJpegPreview(ctx, static_cast<std::uint32_t>(Position(ctx)), entry.count);
}

// New notes hold the directory's offset in a word of type IFD or LONG; in old ones the value, of
// type UNDEFINED, is the directory.
template <void (*Decode)(ParseContext&, Note&)>
void EnterDirectory(ParseContext& ctx, const DirEntry& entry, Note& note) {
    if (entry.type == kTypeIfd || entry.type == kTypeLong) SeekToOffset(ctx, ReadU32(ctx));
    Decode(ctx, note);
}

constexpr TagRow<Note> kTags[] = {
    {0x0081, AddInlinePreview},
    {0x0088, StoreOlympusPart<&Note::minoltaPreview, &OlympusPreview::offset>},
    {0x0089, StoreOlympusPart<&Note::minoltaPreview, &OlympusPreview::length>},
    {0x0100, AddInlinePreview},
    {0x0104, StoreOlympusText<&Fields::mainFirmware>},
    {0x0200,
     StoreOlympusNumbers<&Fields::specialMode, &Fields::specialSequence, &Fields::specialPanorama>},
    {0x0201, InOlympusFields<StoreInteger<&Fields::mainQuality>>},
    {0x0202, InOlympusFields<StoreInteger<&Fields::mainMacro>>},
    {0x0203, InOlympusFields<StoreInteger<&Fields::blackAndWhite>>},
    {0x0204, InOlympusFields<StoreFloat<&Fields::digitalZoom>>},
    {0x0207, StoreOlympusText<&Fields::mainType>},
    {0x0209, StoreOlympusText<&Fields::cameraId>},
    {0x0302, InOlympusFields<StoreInteger<&Fields::oneTouchBalance>>},
    {0x0303, InOlympusFields<StoreInteger<&Fields::mainBalanceBracket>>},
    {0x0403, InOlympusFields<StoreInteger<&Fields::compactScene>>},
    {0x0404, StoreOlympusText<&Fields::compactSerial>},
    {0x0405, StoreOlympusText<&Fields::compactFirmware>},
    {0x0F04, StoreOlympusPart<&Note::zoomedPreview, &OlympusPreview::offset>},
    {0x0F05, StoreOlympusPart<&Note::zoomedPreview, &OlympusPreview::length>},
    {0x1000, FillShutterSpeed},
    {0x1001, FillIsoSpeed},
    {0x1002, FillAperture},
    {0x1003, FillBrightness},
    {0x1004, InOlympusFields<StoreInteger<&Fields::mainFlash>>},
    {0x1005, InOlympusFields<StoreInteger<&Fields::flashDevice>>},
    {0x1006, FillExposureBias},
    {0x100A, InOlympusFields<StoreInteger<&Fields::focusRange>>},
    {0x100B, InOlympusFields<StoreInteger<&Fields::mainFocusMode>>},
    {0x100C, InOlympusFields<StoreFloat<&Fields::manualFocusDistance>>},
    {0x100F, InOlympusFields<StoreInteger<&Fields::mainSharpness>>},
    {0x1015, StoreOlympusNumbers<&Fields::whiteBalanceCode, &Fields::whiteBalanceSubCode>},
    {0x101A, StoreOlympusText<&Fields::mainSerial>},
    {0x1023, InOlympusFields<StoreFloat<&Fields::mainFlashCompensation>>},
    {0x1026, InOlympusFields<StoreInteger<&Fields::flashBounce>>},
    {0x1029, InOlympusFields<StoreInteger<&Fields::mainContrast>>},
    {0x102E, StoreOlympusPart<&Note::size, &OlympusSize::width>},
    {0x102F, StoreOlympusPart<&Note::size, &OlympusSize::height>},
    {0x1034, InOlympusFields<StoreFloat<&Fields::mainCompression>>},
    {0x1035, StoreOlympusPart<&Note::mainPreview, &OlympusPreview::isValid>},
    {0x1036, StoreOlympusPart<&Note::mainPreview, &OlympusPreview::offset>},
    {0x1037, StoreOlympusPart<&Note::mainPreview, &OlympusPreview::length>},
    {0x1039, InOlympusFields<StoreInteger<&Fields::scanMode>>},
    {0x103A, InOlympusFields<StoreInteger<&Fields::mainNoiseReduction>>},
    {0x2010, EnterDirectory<DecodeOlympusEquipment>},
    {0x2020, EnterDirectory<DecodeOlympusSettings>},
    {0x2040, EnterDirectory<DecodeOlympusProcessing>},
    {0x3000, EnterDirectory<DecodeOlympusRawInfo>},
};
static_assert(TagsAscend(kTags));

bool IsSize(const OlympusSize& size) {
    return IsSet(size.width) && IsSet(size.height) && size.width > 0 && size.height > 0;
}

void StoreSize(Note& note) {
    const OlympusSize& size = IsSize(note.size) ? note.size : note.crop;
    if (!IsSize(size)) return;
    note.fields.imageWidth = size.width;
    note.fields.imageHeight = size.height;
}

void AddPreviews(ParseContext& ctx, const Note& note) {
    for (const OlympusPreview* preview :
         {&note.minoltaPreview, &note.zoomedPreview, &note.mainPreview, &note.settingsPreview}) {
        if (preview->isValid != 0)
            AddJpegPreview(ctx, ctx.tiffBase + preview->offset, preview->length);
    }
}

}  // namespace

void ParseOlympusMakerNote(ParseContext& ctx, std::uint32_t) {
    Note note = {ResetMakerRecord<Fields>(ctx.info)};
    const std::uint32_t count = ReadU16(ctx);
    WalkTable(ctx, count, note, kTags);
    StoreSize(note);
    AddPreviews(ctx, note);
}

}  // namespace qmx
