#include "parse/containers/x3f_properties.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <concepts>
#include <span>
#include <string_view>

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "parse/core/cursor.h"
#include "parse/core/decimal.h"
#include "parse/core/local_time.h"

namespace qmx {
namespace {

using Fields = SigmaMakerFields;

// The list's header: magic, version, entry count, character format, a word unused, the number of
// characters.
constexpr std::uint32_t kHeaderBytes = 24;
constexpr std::uint32_t kPairBytes = 8;  // character positions of name and value
constexpr std::uint32_t kUtf16 = 0;
constexpr std::size_t kMaxTextLength = 63;

// The characters behind the pairs.
struct Characters {
    const std::uint8_t* bytes;
    std::size_t count;
};

struct PropertyTarget {
    ImageInfo& info;
    Fields& fields;
};

// Copies as much of the text as fits; a full field has no terminator.
void CopyText(std::span<char> field, std::string_view text) {
    std::fill(field.begin(), field.end(), '\0');
    std::copy_n(text.begin(), std::min(text.size(), field.size()), field.begin());
}

std::string_view SkipBlanksAndPlus(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('+')) text.remove_prefix(1);
    return text;
}

// The number that a text begins with; false when it does not.
bool ReadNumber(std::string_view& text, float& number) {
    text = SkipBlanksAndPlus(text);
    return TakeDecimal(text, number);
}

template <std::integral Number>
bool ReadNumber(std::string_view& text, Number& number) {
    text = SkipBlanksAndPlus(text);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{}) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

// "0.5" or "1/180"; FLOAT_UNSET when the text is no number.
float ReadFraction(std::string_view text) {
    float number = 0;
    if (!ReadNumber(text, number)) return FLOAT_UNSET;
    float divisor = 1;
    if (text.starts_with('/')) {
        text.remove_prefix(1);
        if (!ReadNumber(text, divisor)) return FLOAT_UNSET;
    }
    const float quotient = divisor != 0 ? number / divisor : FLOAT_UNSET;
    return std::isfinite(quotient) ? quotient : FLOAT_UNSET;
}

template <auto Field>
void StoreInfoText(const PropertyTarget& target, std::string_view text) {
    auto& field = target.info.*Field;
    CopyText({field, sizeof field - 1}, text);
}

template <auto Field>
void StoreField(const PropertyTarget& target, std::string_view text) {
    CopyText(target.fields.*Field, text);
}

template <auto Field>
void StoreFraction(const PropertyTarget& target, std::string_view text) {
    target.info.*Field = ReadFraction(text);
}

void StoreIso(const PropertyTarget& target, std::string_view text) {
    std::int32_t speed = 0;
    if (ReadNumber(text, speed)) target.info.isoSpeed = speed;
}

void StoreFocalLengthIn35mm(const PropertyTarget& target, std::string_view text) {
    const float value = ReadFraction(text);
    target.info.focalLengthIn35mm = value == 0 ? FLOAT_UNSET : value;  // 0 means unknown
}

// A key without content holds a blank.
bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == text.npos; }

void StoreFlash(const PropertyTarget& target, std::string_view text) {
    if (!IsBlank(text)) target.info.flash = text == "OFF" ? 0 : 1;
}

void StoreWhiteBalance(const PropertyTarget& target, std::string_view text) {
    StoreField<sigmaWhiteBalance>(target, text);
    if (!IsBlank(text)) target.info.whiteBalance = text == "Auto" ? 0 : 1;
}

// What a code of one letter says in Exif's numbers; unknown letters say nothing.
struct LetterCode {
    char letter;
    std::int32_t code;
};
constexpr LetterCode kMeteringModes[] = {{'8', 5}, {'C', 2}, {'A', 1}, {'S', 3}};
constexpr LetterCode kExposurePrograms[] = {{'A', 3}, {'M', 1}, {'P', 2}, {'S', 4}};

template <auto Field, auto InfoField, const auto& Codes>
void StoreLetter(const PropertyTarget& target, std::string_view text) {
    StoreField<Field>(target, text);
    for (const LetterCode& row : Codes)
        if (text.starts_with(row.letter)) target.info.*InfoField = row.code;
}

void StoreTime(const PropertyTarget& target, std::string_view text) {
    std::int64_t seconds = 0;
    if (ReadNumber(text, seconds)) FormatLocalTime(seconds, target.info.dateTimeOriginal);
}

struct PropertyRow {
    std::string_view name;
    void (*store)(const PropertyTarget& target, std::string_view text);
};

constexpr PropertyRow kProperties[] = {
    {"CAMMANUF", StoreInfoText<&ImageInfo::cameraMake>},
    {"CAMMODEL", StoreInfoText<&ImageInfo::cameraModel>},
    {"ISO", StoreIso},
    {"AP_DESC", StoreFraction<&ImageInfo::fNumber>},
    {"SH_DESC", StoreFraction<&ImageInfo::exposureTime>},
    {"EXPCOMP", StoreFraction<&ImageInfo::exposureBias>},
    {"FLENGTH", StoreFraction<&ImageInfo::focalLength>},
    {"FLEQ35MM", StoreFocalLengthIn35mm},
    {"FLASH", StoreFlash},
    {"WB_DESC", StoreWhiteBalance},
    {"AEMODE", StoreLetter<sigmaMetering, &ImageInfo::meteringMode, kMeteringModes>},
    {"DRIVE", StoreField<sigmaDriveMode>},
    {"AFMODE", StoreField<sigmaAfMode>},
    {"PMODE", StoreLetter<sigmaProgramMode, &ImageInfo::exposureProgram, kExposurePrograms>},
    {"BRACKET", StoreField<&Fields::sigmaBracket>},
    {"RESOLUTION", StoreField<sigmaResolution>},
    {"TIME", StoreTime},
    {"LENSFRANGE", StoreField<sigmaLensFocalRange>},
    {"LENSARANGE", StoreField<&Fields::sigmaLensApertureRange>},
    {"LENSMODEL", StoreField<&Fields::sigmaLensModel>},
    {"CAMSERIAL", StoreField<sigmaCameraSerial>},
    {"BURST", StoreField<&Fields::sigmaBurst>},
    {"ROTATION", StoreField<&Fields::sigmaRotation>},
    {"AFAREA", StoreField<&Fields::sigmaAfArea>},
    {"AFINFOCUS", StoreField<&Fields::sigmaAfInFocus>},
    {"COLORSPACE", StoreField<sigmaColorSpace>},
    {"FOCUS", StoreField<sigmaFocus>},
};

// The low bytes of the characters from `position` to the next zero.
std::string_view ReadText(ParseContext& ctx, const Characters& characters, std::uint32_t position,
                          char (&storage)[kMaxTextLength]) {
    std::size_t length = 0;
    for (std::size_t at = position; at < characters.count && length < sizeof storage; ++at) {
        const std::uint8_t* character = characters.bytes + at * 2;
        if (character[0] == 0 && character[1] == 0) break;
        storage[length++] = static_cast<char>(character[0]);
    }
    SpendWork(ctx, static_cast<std::uint32_t>(length) * 2);
    return {storage, length};
}

void StorePair(ParseContext& ctx, const Characters& characters, const PropertyTarget& target) {
    char nameStorage[kMaxTextLength];
    char valueStorage[kMaxTextLength];
    const std::string_view name = ReadText(ctx, characters, ReadU32(ctx), nameStorage);
    const std::uint32_t valuePosition = ReadU32(ctx);
    for (const PropertyRow& row : kProperties)
        if (row.name == name)
            row.store(target, ReadText(ctx, characters, valuePosition, valueStorage));
}

}  // namespace

bool ParseX3fProperties(ParseContext& ctx, std::uint32_t offset, std::uint32_t length) {
    SeekTo(ctx, static_cast<std::int32_t>(offset));
    const std::size_t size = std::min<std::size_t>(length, BytesLeft(ctx));
    if (size < kHeaderBytes || !ReadMagic(ctx, "SECp")) return false;
    ReadU32(ctx);  // the version
    const std::uint32_t count = ReadU32(ctx);
    if (ReadU32(ctx) != kUtf16 || count > (size - kHeaderBytes) / kPairBytes) return false;
    ReadU32(ctx);
    ReadU32(ctx);  // the number of characters, which the section's length bounds
    const std::size_t pairBytes = std::size_t{count} * kPairBytes;
    const Characters characters = {ctx.cursor + pairBytes, (size - kHeaderBytes - pairBytes) / 2};
    ctx.info.hasMakerNote = 1;
    const PropertyTarget target = {ctx.info, MakerRecord<Fields>(ctx.info)};
    for (std::uint32_t i = 0; i < count && !AtEnd(ctx); ++i) {
        SpendWork(ctx, kPairBytes);
        StorePair(ctx, characters, target);
    }
    return true;
}

}  // namespace qmx
