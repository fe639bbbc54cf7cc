#include "parse/containers/x3f.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "parse/containers/x3f_image.h"
#include "parse/containers/x3f_properties.h"
#include "parse/core/cursor.h"

namespace qmx {
namespace {

using Fields = SigmaMakerFields;

constexpr std::uint32_t kHeaderBytes = 40;
constexpr std::int32_t kSizePosition = 28;  // columns, rows, rotation
constexpr std::uint32_t kFirstExtendedVersion = 0x20001;

// The extended header: up to two texts (white balance, scene), the types of the adjustments, a byte
// each, and their values.
constexpr std::uint32_t kExtendedBytes = 192;
constexpr std::uint32_t kTextBytes = 32;
constexpr int kMaxTexts = 2;
constexpr std::size_t kAdjustmentCount = 32;
constexpr std::uint32_t kAdjustmentBytes = kAdjustmentCount * (1 + 4);

constexpr std::uint32_t kPointerBytes = 4;  // the directory's position ends the file
constexpr std::uint32_t kSectionEntryBytes = 12;
constexpr std::uint32_t kImageHeaderBytes = 28;
constexpr std::uint32_t kPreview = 2;  // the type of an image

constexpr std::uint32_t FourLetters(std::string_view name) {
    std::uint32_t word = 0;
    for (int i = 3; i >= 0; --i)
        word = word << 8 | static_cast<std::uint8_t>(name[static_cast<std::size_t>(i)]);
    return word;
}

std::int32_t OrientationOf(std::uint32_t degrees) {
    switch (degrees) {
        case 90: return 6;
        case 180: return 3;
        case 270: return 8;
        default: return kUpright;
    }
}

bool ReadHeader(ParseContext& ctx) {
    SeekTo(ctx, 0);
    if (BytesLeft(ctx) < kHeaderBytes || !ReadMagic(ctx, "FOVb")) return false;
    ctx.info.makerId = kMakerSigma;
    ctx.byteOrder = kLittleEndian;
    auto& fields = ResetMakerRecord<Fields>(ctx.info);
    fields.sigmaFormatVersion = static_cast<std::int32_t>(ReadU32(ctx));
    SeekTo(ctx, kSizePosition);
    // Deliberate: the columns are kept as the height and the rows as the width.
    ctx.info.pixelYDimension = static_cast<std::int32_t>(ReadU32(ctx));
    ctx.info.pixelXDimension = static_cast<std::int32_t>(ReadU32(ctx));
    ctx.info.orientation = OrientationOf(ReadU32(ctx));
    return true;
}

// Where the value of each type of adjustment goes; red, green and blue share a text.
using AdjustmentField = char (Fields::*)[16];
constexpr AdjustmentField kAdjustmentFields[] = {
    nullptr,
    sigmaExposureAdjust,
    sigmaContrastAdjust,
    sigmaShadowAdjust,
    sigmaHighlightAdjust,
    sigmaSaturationAdjust,
    sigmaSharpnessAdjust,
    sigmaColorAdjust,
    sigmaColorAdjust,
    sigmaColorAdjust,
    sigmaFillLight,
};

// Appends what fits; a full field has no terminator.
void AppendToField(char (&field)[16], std::string_view text) {
    const std::size_t length = FieldText(field).size();
    std::memcpy(field + length, text.data(), std::min(text.size(), sizeof field - length));
}

// "+0.0", "-1.5"; nonsense is kept within 64 bits.
std::string_view FormatAdjustment(float value, char (&storage)[24]) {
    constexpr double kBound = 9.0e18;
    const double scaled = std::nearbyint(std::fabs(static_cast<double>(value)) * 10.0);
    const auto tenths = static_cast<std::uint64_t>(scaled < kBound ? scaled : kBound);
    storage[0] = value < 0 ? '-' : '+';
    char* end = std::to_chars(storage + 1, storage + sizeof storage - 2, tenths / 10).ptr;
    *end++ = '.';
    *end++ = static_cast<char>('0' + tenths % 10);
    return {storage, static_cast<std::size_t>(end - storage)};
}

void StoreAdjustment(Fields& fields, std::uint8_t type, float value) {
    if (type == 0 || type >= std::size(kAdjustmentFields)) return;
    auto& field = fields.*kAdjustmentFields[type];
    if (kAdjustmentFields[type] != sigmaColorAdjust) std::memset(field, 0, sizeof field);
    if (field[0] != 0) AppendToField(field, ", ");
    char storage[24];
    AppendToField(field, FormatAdjustment(value, storage));
}

// Types are small numbers; an empty text is all zeros.
bool IsText(const std::uint8_t* block) {
    if (block[0] >= 0x20 && block[0] <= 0x7E) return true;
    return std::all_of(block, block + kTextBytes, [](std::uint8_t byte) { return byte == 0; });
}

bool ReadAdjustments(ParseContext& ctx, Fields& fields) {
    SeekTo(ctx, kHeaderBytes);
    if (BytesLeft(ctx) < kExtendedBytes) return false;
    for (int texts = 0; texts < kMaxTexts && IsText(ctx.cursor); ++texts)
        SeekTo(ctx, WrappingAdd(Position(ctx), kTextBytes));
    if (BytesLeft(ctx) < kAdjustmentBytes) return false;
    std::uint8_t types[kAdjustmentCount];
    ReadBytes(ctx, types, sizeof types);
    for (const std::uint8_t type : types)
        StoreAdjustment(fields, type, static_cast<float>(ReadValue(ctx, kTypeFloat)));
    return true;
}

// Takes the image section for the one to deliver when it is a preview that can be, and smaller than
// the one before, or larger with `wantPrimary`.
void ConsiderImage(ParseContext& ctx, std::uint32_t position, std::uint32_t length,
                   X3fImage& chosen) {
    SeekTo(ctx, static_cast<std::int32_t>(position));
    if (length < kImageHeaderBytes || BytesLeft(ctx) < kImageHeaderBytes) return;
    if (!ReadMagic(ctx, "SECi")) return;
    ReadU32(ctx);  // the version
    if (ReadU32(ctx) != kPreview) return;
    X3fImage image = {};
    image.format = ReadU32(ctx);
    image.columns = ReadU32(ctx);
    image.rows = ReadU32(ctx);
    image.rowBytes = ReadU32(ctx);
    image.position = position + kImageHeaderBytes;
    image.length = length - kImageHeaderBytes;
    if (!IsKnownFormat(image) || AreaOf(image) == 0) return;
    const std::uint64_t area = AreaOf(image);
    const std::uint64_t best = AreaOf(chosen);
    if (best == 0 || (ctx.wantPrimary ? area > best : area < best)) chosen = image;
}

bool ReadSection(ParseContext& ctx, X3fImage& chosen) {
    const std::uint32_t position = ReadU32(ctx);
    const std::uint32_t length = ReadU32(ctx);
    switch (ReadU32(ctx)) {
        case FourLetters("IMA2"):
        case FourLetters("IMAG"):
            if (ctx.outStream != nullptr) ConsiderImage(ctx, position, length, chosen);
            return true;
        case FourLetters("PROP"): return ParseX3fProperties(ctx, position, length);
        default: return true;
    }
}

// False when the directory or the property list is not sound.
bool ReadDirectory(ParseContext& ctx, X3fImage& chosen) {
    SeekTo(ctx, static_cast<std::int32_t>(ctx.fileSize - kPointerBytes));
    SeekTo(ctx, static_cast<std::int32_t>(ReadU32(ctx)));
    if (!ReadMagic(ctx, "SECd")) return false;
    ReadU32(ctx);  // the version
    const std::uint32_t count = ReadU32(ctx);
    for (std::uint32_t i = 0; i < count; ++i) {
        if (AtEnd(ctx)) return false;
        const std::int32_t next = WrappingAdd(Position(ctx), kSectionEntryBytes);
        SpendWork(ctx, kSectionEntryBytes);
        if (!ReadSection(ctx, chosen)) return false;
        SeekTo(ctx, next);
    }
    return true;
}

}  // namespace

std::uint8_t ParseX3f(ParseContext& ctx) {
    if (!ReadHeader(ctx)) return 0;
    auto& fields = MakerRecord<Fields>(ctx.info);
    if (static_cast<std::uint32_t>(fields.sigmaFormatVersion) >= kFirstExtendedVersion &&
        !ReadAdjustments(ctx, fields))
        return 0;
    X3fImage chosen = {};
    if (!ReadDirectory(ctx, chosen)) return 0;
    if (AreaOf(chosen) == 0) return 1;
    if (!WriteX3fImage(ctx, chosen)) return 0;
    ctx.thumbDone = 1;
    return 1;
}

}  // namespace qmx
