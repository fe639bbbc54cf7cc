#include "rawdev/raw_tags.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <span>
#include <string_view>

#include "parse/core/numeric.h"
#include "rawdev/balance_text.h"

namespace qmx {
namespace {

constexpr std::uint32_t kMaxDepth = 8;  // directories within directories
constexpr std::uint32_t kEntryBytes = 12;

struct Walk {
    const FileView& file;
    RawDecodeState& state;
    RawTags& tags;
    RawIfd* ifd = nullptr;      // the directory being read
    std::int64_t workLeft = 0;  // bytes of entries and blocks that may still be visited
    std::uint32_t depth = 0;
};

void ReadDirectory(Walk& walk, std::uint64_t position, bool isImage);

TagValues ValuesOf(const FileView& file, std::uint64_t entry) {
    TagValues values;
    values.type = static_cast<std::uint16_t>(file.U16(entry + 2));
    values.count = file.U32(entry + 4);
    values.position = entry + 8;
    // A value that fits 4 bytes stands in the entry itself.
    if (std::uint64_t{RawTypeSize(values.type)} * values.count > 4)
        values.position = file.U32(entry + 8);
    return values;
}

template <class Visit>
void ForEntries(Walk& walk, std::uint64_t position, Visit&& visit) {
    const std::uint32_t count = walk.file.U16(position);
    for (std::uint32_t i = 0; i < count && walk.workLeft > 0; ++i) {
        const std::uint64_t entry = position + 2 + std::uint64_t{i} * kEntryBytes;
        if (walk.file.BytesFrom(entry) < kEntryBytes) return;
        walk.workLeft -= kEntryBytes;
        visit(entry);
    }
}

// Stores of the table below.

template <auto Field>
void StoreIfdNumber(Walk& walk, const TagValues& values) {
    walk.ifd->*Field = ReadUnsigned(walk.file, values, 0);
}

template <auto Field>
void StoreIfdValues(Walk& walk, const TagValues& values) {
    walk.ifd->*Field = values;
}

void KeepFirst(TagValues& kept, const TagValues& values) {
    if (kept.count == 0) kept = values;
}

template <auto Field>
void StoreColor(Walk& walk, const TagValues& values) {
    KeepFirst(walk.tags.color.*Field, values);
}

template <auto Field, std::size_t Index>
void StoreColorOf(Walk& walk, const TagValues& values) {
    KeepFirst((walk.tags.color.*Field)[Index], values);
}

// Copies up to a NUL, always terminated.
void CopyText(const Walk& walk, const TagValues& values, std::span<char> dst) {
    const std::uint64_t there = walk.file.BytesFrom(values.position);
    const auto length = static_cast<std::size_t>(
        std::min({std::uint64_t{values.count}, there, std::uint64_t{dst.size() - 1}}));
    std::memset(dst.data(), 0, dst.size());
    if (length == 0) return;
    const std::uint8_t* text = walk.file.data + values.position;
    for (std::size_t i = 0; i < length && text[i] != 0; ++i) dst[i] = static_cast<char>(text[i]);
}

void StoreFirstText(const Walk& walk, const TagValues& values, std::span<char> dst) {
    if (dst[0] != 0) return;
    CopyText(walk, values, dst);
    for (std::size_t end = std::strlen(dst.data()); end > 0 && dst[end - 1] == ' ';) dst[--end] = 0;
}

void StoreMake(Walk& walk, const TagValues& values) {
    StoreFirstText(walk, values, walk.state.makeText);
}
void StoreModel(Walk& walk, const TagValues& values) {
    StoreFirstText(walk, values, walk.state.modelText);
}
void StoreDateTime(Walk& walk, const TagValues& values) {
    StoreFirstText(walk, values, walk.state.shot.dateTime);
}
void StoreDateTimeOriginal(Walk& walk, const TagValues& values) {
    StoreFirstText(walk, values, walk.state.shot.dateTimeOriginal);
}

// Files that a converter wrote hold a finished picture.
void StoreSoftware(Walk& walk, const TagValues& values) {
    constexpr std::string_view kBeginnings[] = {"Adobe", "dcraw", "Bibble", "Nikon Scan"};
    char storage[64];
    CopyText(walk, values, storage);
    const std::string_view software = storage;
    for (const std::string_view beginning : kBeginnings)
        if (software.starts_with(beginning)) walk.tags.isProcessed = true;
    if (software == "Digital Photo Professional") walk.tags.isProcessed = true;
}

void StoreOrientation(Walk& walk, const TagValues& values) {
    constexpr char kFlips[] = "50132467";  // by the low bits of the orientation
    walk.ifd->flip = kFlips[ReadUnsigned(walk.file, values, 0) & 7] - '0';
}

// Panasonic's first directory lacks the standard tags for its size.
void StoreSensorWidth(Walk& walk, const TagValues& values) {
    if (walk.ifd->width == 0) walk.ifd->width = ReadUnsigned(walk.file, values, 0);
}
void StoreSensorHeight(Walk& walk, const TagValues& values) {
    if (walk.ifd->height == 0) walk.ifd->height = ReadUnsigned(walk.file, values, 0);
}

// 0 for what is no number or too large for one.
float ToFloat(double value) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return value >= -kLargest && value <= kLargest ? static_cast<float>(value) : 0;
}

template <auto Field>
void StoreShotFloat(Walk& walk, const TagValues& values) {
    float& field = walk.state.shot.*Field;
    if (field == 0) field = ToFloat(ReadNumber(walk.file, values, 0));
}

template <auto Field>
void StoreShotCode(Walk& walk, const TagValues& values) {
    const double code = ReadNumber(walk.file, values, 0);
    if (!std::isnan(code)) walk.state.shot.*Field = TruncateToI32(code);
}

// Fall-backs in the units of APEX, in which 0 is a value too.
void StorePower(double exponent, float& field) {
    if (field == 0) field = ToFloat(std::exp2(exponent));
}
void StoreShutterSpeed(Walk& walk, const TagValues& values) {
    StorePower(-ReadNumber(walk.file, values, 0), walk.state.shot.exposureTime);
}
void StoreAperture(Walk& walk, const TagValues& values) {
    StorePower(ReadNumber(walk.file, values, 0) / 2, walk.state.shot.fNumber);
}

void StoreFlash(Walk& walk, const TagValues& values) {
    walk.state.shot.flashFired = (ReadUnsigned(walk.file, values, 0) & 1) != 0;
}

template <auto Field>
void StoreTag(Walk& walk, const TagValues& values) {
    KeepFirst(walk.tags.*Field, values);
}

template <auto Read>
void ReadTextBlock(Walk& walk, const TagValues& values) {
    const std::uint64_t there = walk.file.BytesFrom(values.position);
    const auto length =
        static_cast<std::size_t>(std::min({std::uint64_t{values.count}, there, kMaxBalanceText}));
    if (length == 0) return;
    walk.workLeft -= static_cast<std::int64_t>(length);
    const auto* text = reinterpret_cast<const char*>(walk.file.data + values.position);
    Read({text, length}, walk.state);
}

// Epson's note: a name of 8 bytes, then entries whose offsets count from the file's start.
void FindEpsonBalance(Walk& walk, const TagValues& note) {
    constexpr std::string_view kName = "EPSON";
    constexpr std::uint32_t kBalance = 0x0E80;
    for (std::size_t i = 0; i < kName.size(); ++i)
        if (static_cast<char>(walk.file.U8(note.position + i)) != kName[i]) return;
    ForEntries(walk, note.position + 8, [&walk](std::uint64_t entry) {
        if (walk.file.U16(entry) == kBalance)
            KeepFirst(walk.tags.color.epsonBalance, ValuesOf(walk.file, entry));
    });
}

void OpenSubIfds(Walk& walk, const TagValues& values) {
    // A count beyond the table of directories cannot be met.
    const auto count = std::min(values.count, static_cast<std::uint32_t>(walk.tags.ifds.size()));
    for (std::uint32_t i = 0; i < count; ++i)
        ReadDirectory(walk, ReadUnsigned(walk.file, values, i), true);
}

void OpenExif(Walk& walk, const TagValues& values) {
    ReadDirectory(walk, ReadUnsigned(walk.file, values, 0), false);
}

struct RawTagRow {
    std::uint16_t tag;
    void (*store)(Walk& walk, const TagValues& values);
};

using Color = RawColorTags;

constexpr RawTagRow kTags[] = {
    {2, StoreSensorWidth},
    {3, StoreSensorHeight},
    {17, StoreColor<&Color::balanceRed>},
    {18, StoreColor<&Color::balanceBlue>},
    {23, StoreTag<&RawTags::panasonicIso>},
    {36, StoreColor<&Color::levelRed>},
    {37, StoreColor<&Color::levelGreen>},
    {38, StoreColor<&Color::levelBlue>},
    {45, StoreTag<&RawTags::panasonicFormat>},
    {254, StoreIfdNumber<&RawIfd::subfileType>},
    {256, StoreIfdNumber<&RawIfd::width>},
    {257, StoreIfdNumber<&RawIfd::height>},
    {258, StoreIfdNumber<&RawIfd::bitsPerSample>},
    {259, StoreIfdNumber<&RawIfd::compression>},
    {262, StoreIfdNumber<&RawIfd::photometric>},
    {271, StoreMake},
    {272, StoreModel},
    {273, StoreIfdValues<&RawIfd::offsets>},
    {274, StoreOrientation},
    {277, StoreIfdNumber<&RawIfd::samplesPerPixel>},
    {278, StoreIfdNumber<&RawIfd::rowsPerStrip>},
    {279, StoreIfdValues<&RawIfd::byteCounts>},
    {280, StoreTag<&RawTags::panasonicData>},
    {284, StoreIfdNumber<&RawIfd::planarConfig>},
    {305, StoreSoftware},
    {306, StoreDateTime},
    {322, StoreIfdNumber<&RawIfd::tileWidth>},
    {323, StoreIfdNumber<&RawIfd::tileHeight>},
    {324, StoreIfdValues<&RawIfd::offsets>},
    {325, StoreIfdValues<&RawIfd::byteCounts>},
    {330, OpenSubIfds},
    {33421, StoreIfdValues<&RawIfd::cfaRepeat>},
    {33422, StoreIfdValues<&RawIfd::cfaPattern>},
    {33434, StoreShotFloat<&ShotData::exposureTime>},
    {33437, StoreShotFloat<&ShotData::fNumber>},
    {34310, ReadTextBlock<ReadLeafBlock>},
    {34665, OpenExif},
    {34850, StoreShotCode<&ShotData::exposureProgram>},
    {34855, StoreShotFloat<&ShotData::isoSpeed>},
    {36867, StoreDateTimeOriginal},
    {37377, StoreShutterSpeed},
    {37378, StoreAperture},
    {37380, StoreShotFloat<&ShotData::exposureBias>},
    {37383, StoreShotCode<&ShotData::meteringMode>},
    {37385, StoreFlash},
    {37386, StoreShotFloat<&ShotData::focalLength>},
    {37500, FindEpsonBalance},
    {41987, StoreShotCode<&ShotData::whiteBalance>},
    {50454, ReadTextBlock<ReadBalanceText>},
    {50455, ReadTextBlock<ReadBalanceText>},
    {50706, StoreColor<&Color::dngVersion>},
    {50712, StoreIfdValues<&RawIfd::linearization>},
    {50713, StoreIfdValues<&RawIfd::blackRepeat>},
    {50714, StoreIfdValues<&RawIfd::blackLevel>},
    {50715, StoreIfdValues<&RawIfd::blackDeltaH>},
    {50716, StoreIfdValues<&RawIfd::blackDeltaV>},
    {50717, StoreIfdValues<&RawIfd::whiteLevel>},
    {50718, StoreIfdValues<&RawIfd::defaultScale>},
    {50721, StoreColorOf<&Color::colorMatrix, 0>},
    {50722, StoreColorOf<&Color::colorMatrix, 1>},
    {50723, StoreColorOf<&Color::cameraCalibration, 0>},
    {50724, StoreColorOf<&Color::cameraCalibration, 1>},
    {50727, StoreColor<&Color::analogBalance>},
    {50728, StoreColor<&Color::asShotNeutral>},
    {50729, StoreColor<&Color::asShotWhite>},
    {50778, StoreColorOf<&Color::illuminant, 0>},
    {50779, StoreColorOf<&Color::illuminant, 1>},
    {50829, StoreIfdValues<&RawIfd::activeArea>},
};
static_assert(std::is_sorted(std::begin(kTags), std::end(kTags),
                             [](const RawTagRow& a, const RawTagRow& b) { return a.tag < b.tag; }));

void ReadEntry(Walk& walk, std::uint64_t position) {
    const std::uint32_t tag = walk.file.U16(position);
    const auto row = std::lower_bound(
        std::begin(kTags), std::end(kTags), tag,
        [](const RawTagRow& candidate, std::uint32_t wanted) { return candidate.tag < wanted; });
    if (row == std::end(kTags) || row->tag != tag) return;

    const TagValues values = ValuesOf(walk.file, position);
    if (values.count != 0) row->store(walk, values);
}

// The Exif directory describes no image of its own.
void ReadDirectory(Walk& walk, std::uint64_t position, bool isImage) {
    if (position == 0 || walk.depth == kMaxDepth || walk.workLeft <= 0) return;
    if (isImage && walk.tags.ifdCount == walk.tags.ifds.size()) return;
    RawIfd unused;
    RawIfd* const outer = walk.ifd;
    walk.ifd = isImage ? &walk.tags.ifds[walk.tags.ifdCount++] : &unused;
    walk.workLeft -= kEntryBytes;
    ++walk.depth;
    ForEntries(walk, position, [&walk](std::uint64_t entry) { ReadEntry(walk, entry); });
    --walk.depth;
    walk.ifd = outer;
}

}  // namespace

void ReadRawTags(RawDecodeState& state, RawTags& tags) {
    const FileView& file = state.file;
    Walk walk = {file, state, tags};
    // Honest directories do not overlap: together they are no longer than the file.
    walk.workLeft = static_cast<std::int64_t>(file.size);
    std::uint64_t position = file.U32(4);
    while (position != 0 && tags.ifdCount < tags.ifds.size() && walk.workLeft > 0) {
        ReadDirectory(walk, position, true);
        position = file.U32(position + 2 + std::uint64_t{file.U16(position)} * kEntryBytes);
    }
}

}  // namespace qmx
