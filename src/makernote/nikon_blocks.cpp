#include "makernote/nikon_note.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace qmx {
namespace {

// The first bytes of a value.
class Block {
public:
    Block(ParseContext& ctx, const DirEntry& entry) {
        const std::uint64_t length = std::uint64_t{FieldTypeSize(entry.type)} * entry.count;
        size_ = ReadBytes(ctx, bytes_, std::min<std::uint64_t>(length, sizeof bytes_));
    }

    bool Holds(std::size_t size) const { return size_ >= size; }

    // INT_UNSET behind the end.
    std::int32_t Byte(std::size_t at) const { return Holds(at + 1) ? bytes_[at] : INT_UNSET; }

    std::int32_t Word(std::size_t at, std::uint16_t byteOrder) const {
        if (!Holds(at + 2)) return INT_UNSET;
        return byteOrder == kLittleEndian ? bytes_[at] | bytes_[at + 1] << 8
                                          : bytes_[at] << 8 | bytes_[at + 1];
    }

    // INT_UNSET also for what no signed number holds.
    std::int32_t Long(std::size_t at, std::uint16_t byteOrder) const {
        if (!Holds(at + 4)) return INT_UNSET;
        const std::int32_t first = Word(at, byteOrder);
        const std::int32_t second = Word(at + 2, byteOrder);
        const std::int32_t high = byteOrder == kLittleEndian ? second : first;
        const std::int32_t low = byteOrder == kLittleEndian ? first : second;
        return high > 0x7FFF ? INT_UNSET : high << 16 | low;
    }

    bool HasVersion(std::string_view beginning) const {
        return Holds(beginning.size()) &&
               std::memcmp(bytes_, beginning.data(), beginning.size()) == 0;
    }

    // Up to its terminator; `dst` is longer than the text.
    template <std::size_t Size>
    void CopyText(std::size_t at, char (&dst)[Size]) const {
        constexpr std::size_t kTextBytes = 20;
        static_assert(Size > kTextBytes);
        if (!Holds(at + kTextBytes)) return;
        std::string_view text(reinterpret_cast<const char*>(bytes_ + at), kTextBytes);
        text = text.substr(0, text.find('\0'));
        text = text.substr(0, text.find_last_not_of(' ') + 1);
        std::fill(std::begin(dst), std::end(dst), '\0');
        text.copy(dst, text.size());
    }

private:
    std::uint8_t bytes_[80] = {};
    std::size_t size_ = 0;
};

// Centred on 0x80; 0xFF says that the camera has no such setting.
std::int32_t Step(const Block& block, std::size_t at, std::int32_t quartersPerUnit) {
    constexpr std::int32_t kCentre = 0x80;
    constexpr std::int32_t kNone = 0xFF;
    constexpr std::int32_t kUser = 1;  // and 0 automatic
    const std::int32_t byte = block.Byte(at);
    if (!IsSet(byte) || byte == kNone) return INT_UNSET;
    const std::int32_t step = byte - kCentre;
    return step * (byte <= kUser ? kNikonStepQuarters : quartersPerUnit);
}

std::int32_t Effect(const Block& block, std::size_t at) {
    constexpr std::int32_t kNone = 0xFF;
    const std::int32_t byte = block.Byte(at);
    return byte == kNone ? INT_UNSET : byte;
}

void StoreFirstPictureControl(const Block& block, NikonMakerFields& fields) {
    fields.nikonPcSharpness = Step(block, 50, kNikonStepQuarters);
    fields.nikonPcContrast = Step(block, 51, kNikonStepQuarters);
    fields.nikonPcBrightness = Step(block, 52, kNikonStepQuarters);
    fields.nikonPcSaturation = Step(block, 53, kNikonStepQuarters);
    fields.nikonPcHue = Step(block, 54, kNikonStepQuarters);
    fields.nikonFilterEffect = Effect(block, 55);
    fields.nikonToningEffect = Effect(block, 56);
}

// In quarters as they stand.
void StoreSecondPictureControl(const Block& block, NikonMakerFields& fields) {
    fields.nikonPcSharpness = Step(block, 51, 1);
    fields.nikonPcClarity = Step(block, 53, 1);
    fields.nikonPcContrast = Step(block, 55, 1);
    fields.nikonPcBrightness = Step(block, 57, 1);
    fields.nikonPcSaturation = Step(block, 59, 1);
    fields.nikonPcHue = Step(block, 61, 1);
    fields.nikonFilterEffect = Effect(block, 63);
    fields.nikonToningEffect = Effect(block, 64);
}

// Models as numbered in makernote/model_rules.cpp.
bool IsReflex(std::int32_t modelId) { return modelId >= 4096 && modelId < 8192; }

}  // namespace

void StoreNikonVrInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    note.fields.nikonVr = block.Byte(4);
    note.fields.nikonVrMode = block.Byte(6);
}

void StoreNikonPictureControl(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    NikonMakerFields& fields = note.fields;
    const bool isFirst = block.HasVersion("01");
    const bool isThird = block.HasVersion("03");
    if (!isFirst && !isThird && !block.HasVersion("02")) return;
    block.CopyText(isThird ? 8 : 4, fields.nikonPictureControlName);
    block.CopyText(isThird ? 28 : 24, fields.nikonPictureControlBase);
    if (isThird) return;
    fields.nikonPictureControlAdjust = block.Byte(48);
    fields.nikonPictureControlQuick = Step(block, 49, kNikonStepQuarters);
    if (isFirst) {
        StoreFirstPictureControl(block, fields);
    } else {
        StoreSecondPictureControl(block, fields);
    }
}

// Big-endian in every file.
void StoreNikonIsoInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.fields.nikonIsoExpansion = Block(ctx, entry).Word(4, kBigEndian);
}

void StoreNikonDistortInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    note.fields.nikonAutoDistortion = Block(ctx, entry).Byte(4);
}

// Shorter blocks are another layout.
void StoreNikonHdrInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    if (!block.Holds(8)) return;
    note.fields.nikonHdr = block.Byte(4);
    note.fields.nikonHdrLevel = block.Byte(5);
    note.fields.nikonHdrSmoothing = block.Byte(6);
}

// Reflex cameras have the points big-endian, the others little-endian, whatever the note's order.
void StoreNikonAfInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    note.fields.nikonAfAreaMode = block.Byte(0);
    note.fields.nikonAfPoint = block.Byte(1);
    note.fields.nikonAfPointsInFocus =
        block.Word(2, IsReflex(ctx.info.modelId) ? kBigEndian : kLittleEndian);
}

void StoreNikonMultiExposure(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    const std::uint16_t order = block.HasVersion("0101") ? kLittleEndian : ctx.byteOrder;
    note.fields.nikonMultiExposureMode = block.Long(4, order);
    note.fields.nikonMultiExposureShots = block.Long(8, order);
}

void StoreNikonPowerUpTime(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    if (!block.Holds(7)) return;
    auto& time = note.fields.nikonPowerUpTime;
    time[0] = static_cast<std::uint16_t>(block.Word(0, ctx.byteOrder));
    for (std::size_t i = 1; i < std::size(time); ++i)
        time[i] = static_cast<std::uint16_t>(block.Byte(i + 1));
}

// Later versions lay the block out anew.
void StoreNikonAfInfo2(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    if (!block.HasVersion("0100") && !block.HasVersion("0101")) return;
    note.fields.nikonAfInfo2Method = block.Byte(4);
    note.fields.nikonAfAreaMode2 = block.Byte(5);
    note.fields.nikonPrimaryAfPoint = block.Byte(7);
}

// The byte order varies by model: the right one gives a folder and a file that exist.
void StoreNikonFileInfo(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    for (const std::uint16_t order : {kBigEndian, kLittleEndian}) {
        const std::int32_t folder = block.Word(6, order);
        const std::int32_t file = block.Word(8, order);
        if (folder < 100 || folder > 999 || file > 9999) continue;
        note.fields.nikonFolderNumber = folder;
        note.fields.nikonFileNumber = file;
        return;
    }
}

void StoreNikonAfTune(ParseContext& ctx, const DirEntry& entry, NikonNote& note) {
    const Block block(ctx, entry);
    note.fields.nikonAfTune = block.Byte(0);
    if (!block.Holds(3)) return;
    const int step = block.Byte(2);  // signed
    note.fields.nikonAfTuneStep = step < 128 ? step : step - 256;
}

}  // namespace qmx
