#include "makernote/nikon_note.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "makernote/nikon_cipher.h"

namespace qmx {
namespace {

constexpr std::size_t kVersionBytes = 4;
constexpr std::size_t kLensBytes = 7;
constexpr std::size_t kNameBytes = 64;
constexpr std::size_t kLongest = 684 + kNameBytes;  // of what the layouts below describe

// Where the block of each version holds what; 0: nowhere.
struct LensLayout {
    const char* version;
    std::uint16_t lens;     // kLensBytes that identify an F-mount lens
    std::uint16_t name;     // kNameBytes
    std::uint16_t zNumber;  // a little-endian word
};

// clang-format off
constexpr LensLayout kLayouts[] = {
    {"0100", 6, 0, 0},    // D100, D1X
    {"0101", 11, 0, 0},   // D70
    {"0201", 11, 0, 0},   // D200, D2Hs, D2X
    {"0202", 11, 0, 0},   // D40, D60, D80
    {"0203", 11, 0, 0},   // D300
    {"0204", 12, 0, 0},   // D90 and later reflex cameras
    {"0400", 0, 394, 0},  // Nikon 1
    {"0401", 0, 394, 0},
    {"0402", 0, 395, 0},
    {"0403", 0, 684, 0},
    {"0800", 13, 0, 48},  // Z
    {"0801", 13, 0, 48},
    {"0802", 13, 0, 48},
};
// clang-format on

const LensLayout* FindLayout(std::string_view version) {
    for (const LensLayout& layout : kLayouts)
        if (version == layout.version) return &layout;
    return nullptr;
}

// The number in the serial text; bodies that write anything else have a constant each.
std::uint32_t CipherSerial(std::string_view text, bool isNumeric, std::int32_t modelId) {
    constexpr std::int32_t kD50 = 4105;
    constexpr std::uint32_t kD50Serial = 0x22;
    constexpr std::uint32_t kOtherSerial = 0x60;
    if (!isNumeric) return modelId == kD50 ? kD50Serial : kOtherSerial;
    std::uint32_t serial = 0;
    for (const char digit : text) serial = serial * 10 + static_cast<std::uint32_t>(digit - '0');
    return serial;
}

void AppendHexByte(char*& end, std::int32_t byte) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    *end++ = kDigits[byte >> 4 & 15];
    *end++ = kDigits[byte & 15];
}

// All bytes are zero when a lens tells nothing.  The type of a manual lens without contacts is the
// one that makes this an id all the same; on a Z body it is a lens of that mount.
bool IsSilent(std::span<const std::uint8_t> lens, bool isZBody, const NikonMakerFields& fields) {
    constexpr std::int32_t kManual = 1;
    if (!isZBody && fields.nikonLensType == kManual) return false;
    return std::all_of(lens.begin(), lens.end(), [](std::uint8_t byte) { return byte == 0; });
}

void StoreLensId(std::span<const std::uint8_t> lens, NikonMakerFields& fields) {
    fields.nikonLensIdNumber = lens[0];
    if (!IsSet(fields.nikonLensType)) return;
    static_assert(sizeof fields.nikonLensIdText > 2 * (kLensBytes + 1));
    char* end = fields.nikonLensIdText;
    for (const std::uint8_t byte : lens) AppendHexByte(end, byte);
    AppendHexByte(end, fields.nikonLensType);
}

// A name that is no text was enciphered otherwise.
void StoreLensName(std::span<const std::uint8_t> stored, NikonMakerFields& fields) {
    static_assert(sizeof fields.nikonLensText > kNameBytes);
    std::string_view name(reinterpret_cast<const char*>(stored.data()), stored.size());
    name = name.substr(0, name.find('\0'));
    name = name.substr(0, name.find_last_not_of(' ') + 1);
    for (const char unit : name)
        if (unit < ' ' || unit > '~') return;
    name.copy(fields.nikonLensText, name.size());
}

}  // namespace

void DecodeNikonLensData(ParseContext& ctx, const NikonLensSource& source,
                         NikonMakerFields& fields) {
    std::uint8_t storage[kLongest];
    SeekTo(ctx, source.position);
    const std::size_t wanted = std::min<std::size_t>(source.length, sizeof storage);
    const std::span block(storage, ReadBytes(ctx, storage, wanted));
    if (block.size() < kVersionBytes) return;
    const std::string_view version(reinterpret_cast<const char*>(storage), kVersionBytes);
    const LensLayout* const layout = FindLayout(version);
    if (layout == nullptr) return;
    if (version[1] >= '2') {
        if (!source.hasSerialNumber || !source.hasShutterCount) return;
        const std::uint32_t serial = CipherSerial(FieldText(fields.nikonSerialNumber),
                                                  source.isSerialNumeric, ctx.info.modelId);
        DecipherNikon(block.subspan(kVersionBytes), serial, source.shutterCount);
    }
    if (layout->lens != 0 && block.size() >= layout->lens + kLensBytes) {
        const std::span<const std::uint8_t> lens = block.subspan(layout->lens, kLensBytes);
        if (!IsSilent(lens, layout->zNumber != 0, fields)) StoreLensId(lens, fields);
    }
    if (layout->name != 0 && block.size() >= layout->name + kNameBytes)
        StoreLensName(block.subspan(layout->name, kNameBytes), fields);
    if (layout->zNumber != 0 && block.size() >= layout->zNumber + 2u) {
        const std::int32_t number = block[layout->zNumber] | block[layout->zNumber + 1u] << 8;
        if (number != 0) fields.nikonZLensNumber = number;
    }
}

}  // namespace qmx
