#include "support/x3f_builder.h"

#include <algorithm>
#include <bit>

namespace qmx::test {
namespace {

std::uint32_t SizeOf(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

// Bits from the highest of each byte down.
class BitWriter {
public:
    void Put(std::uint32_t value, int count) {
        for (int i = count - 1; i >= 0; --i) {
            if (used_ % 8 == 0) bytes.push_back(0);
            bytes.back() =
                static_cast<std::uint8_t>(bytes.back() | (value >> i & 1) << (7 - used_ % 8));
            ++used_;
        }
    }
    void NextByte() { used_ = 0; }
    Bytes bytes;

private:
    int used_ = 0;
};

}  // namespace

Bytes PropertyList(const Properties& properties) {
    ByteWriter characters(Order::kLittle);
    ByteWriter list(Order::kLittle);
    list.Raw(FromText("SECp")).U32(0x20000);
    list.U32(static_cast<std::uint32_t>(properties.size())).U32(0).U32(0).U32(0);
    const auto add = [&](std::string_view text) {
        list.U32(SizeOf(characters.bytes) / 2);
        for (const char c : text) characters.U16(static_cast<std::uint8_t>(c));
        characters.U16(0);
    };
    for (const auto& [name, value] : properties) {
        add(name);
        add(value);
    }
    return list.Raw(characters.bytes).bytes;
}

Bytes ImageSection(const X3fPicture& picture) {
    ByteWriter section(Order::kLittle);
    section.Raw(FromText("SECi")).U32(0x20000).U32(picture.type).U32(picture.format);
    section.U32(picture.columns).U32(picture.rows).U32(picture.rowBytes);
    return section.Raw(picture.data).bytes;
}

Bytes CodedPixels(std::uint32_t columns, std::uint32_t rows, const Bytes& pixels) {
    ByteWriter file(Order::kLittle);
    for (std::uint32_t d = 0; d < 256; ++d) file.U32(d == 0 ? 1u << 27 : 9u << 27 | 0x100u | d);
    BitWriter bits;
    ByteWriter offsets(Order::kLittle);
    for (std::uint32_t y = 0; y < rows; ++y) {
        offsets.U32(SizeOf(bits.bytes));
        std::uint32_t previous[3] = {};
        for (std::uint32_t i = 0; i < columns * 3; ++i) {
            const std::uint32_t sample = pixels[std::size_t{y} * columns * 3 + i];
            const std::uint32_t difference = (sample - previous[i % 3]) & 0xFF;
            bits.Put(difference == 0 ? 0 : 0x100 | difference, difference == 0 ? 1 : 9);
            previous[i % 3] = sample;
        }
        bits.NextByte();
    }
    return file.Raw(bits.bytes).Raw(offsets.bytes).bytes;
}

Bytes ExtendedHeader(const std::vector<std::string_view>& texts, Bytes types,
                     const std::vector<float>& values) {
    ByteWriter header(Order::kLittle);
    std::size_t size = 0;
    for (const std::string_view text : texts) header.Raw(FromText(text)).Pad(size += 32);
    header.Raw(types).Pad(size += 32);
    for (const float value : values) header.U32(std::bit_cast<std::uint32_t>(value));
    return header.Pad(std::max<std::size_t>(size + 128, 192)).bytes;
}

X3fBuilder& X3fBuilder::Section(std::string_view type, Bytes bytes) {
    sections_.emplace_back(type, std::move(bytes));
    return *this;
}

Bytes X3fBuilder::Build() const {
    ByteWriter file(Order::kLittle);
    file.Raw(FromText("FOVb")).U32(version).Pad(28).U32(columns).U32(rows).U32(rotation);
    file.Raw(extended);
    ByteWriter directory(Order::kLittle);
    directory.Raw(FromText("SECd")).U32(0x20000);
    directory.U32(static_cast<std::uint32_t>(sections_.size()));
    for (const auto& [type, bytes] : sections_) {
        directory.U32(SizeOf(file.bytes)).U32(SizeOf(bytes)).Raw(FromText(type));
        file.Raw(bytes);
    }
    const std::uint32_t position = SizeOf(file.bytes);
    return file.Raw(directory.bytes).U32(position).bytes;
}

}  // namespace qmx::test
