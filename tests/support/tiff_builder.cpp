#include "support/tiff_builder.h"

namespace qmx::test {
namespace {

void PadToEven(Bytes& bytes) {
    if (bytes.size() % 2 != 0) bytes.push_back(0);
}

}  // namespace

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Bytes FromText(std::string_view text) { return {text.begin(), text.end()}; }

ByteWriter& ByteWriter::U8(std::uint32_t value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    return *this;
}

ByteWriter& ByteWriter::U16(std::uint32_t value) {
    return order_ == Order::kLittle ? U8(value & 0xFF).U8(value >> 8 & 0xFF)
                                    : U8(value >> 8 & 0xFF).U8(value & 0xFF);
}

ByteWriter& ByteWriter::U32(std::uint32_t value) {
    return order_ == Order::kLittle ? U16(value & 0xFFFF).U16(value >> 16)
                                    : U16(value >> 16).U16(value & 0xFFFF);
}

ByteWriter& ByteWriter::Raw(const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return *this;
}

ByteWriter& ByteWriter::Sized(const Bytes& more) {
    return U32(static_cast<std::uint32_t>(more.size())).Raw(more);
}

ByteWriter& ByteWriter::Pad(std::size_t size) {
    if (bytes.size() < size) bytes.resize(size);
    return *this;
}

IfdBuilder& IfdBuilder::Value(std::uint16_t tag, std::uint16_t type, std::uint32_t count,
                              Bytes value) {
    entries_.push_back({.tag = tag, .type = type, .count = count, .value = std::move(value)});
    return *this;
}

IfdBuilder& IfdBuilder::Numbers(std::uint16_t tag, std::uint16_t type, const Values& values) {
    ByteWriter writer(order_);
    for (const std::uint32_t value : values)
        type == 1 ? writer.U8(value) : type == 3 ? writer.U16(value) : writer.U32(value);
    return Value(tag, type, static_cast<std::uint32_t>(values.size()), writer.bytes);
}

IfdBuilder& IfdBuilder::Pairs(std::uint16_t tag, std::uint16_t type, const Ratios& values) {
    ByteWriter writer(order_);
    for (const auto& [numerator, denominator] : values)
        writer.U32(static_cast<std::uint32_t>(numerator))
            .U32(static_cast<std::uint32_t>(denominator));
    return Value(tag, type, static_cast<std::uint32_t>(values.size()), writer.bytes);
}

IfdBuilder& IfdBuilder::Ascii(std::uint16_t tag, std::string_view text) {
    Bytes value = FromText(text);
    value.push_back(0);
    const auto count = static_cast<std::uint32_t>(value.size());
    return Value(tag, 2, count, std::move(value));
}

IfdBuilder& IfdBuilder::Undefined(std::uint16_t tag, const Bytes& bytes) {
    return Value(tag, 7, static_cast<std::uint32_t>(bytes.size()), bytes);
}

IfdBuilder& IfdBuilder::Raw(std::uint16_t tag, std::uint16_t type, std::uint32_t count,
                            std::uint32_t field) {
    Value(tag, type, count, ByteWriter(order_).U32(field).bytes);
    entries_.back().raw = true;
    return *this;
}

IfdBuilder& IfdBuilder::Link(std::uint16_t tag, std::vector<const IfdBuilder*> targets) {
    Value(tag, 4, static_cast<std::uint32_t>(targets.size()), Bytes(targets.size() * 4));
    entries_.back().links = std::move(targets);
    return *this;
}

IfdBuilder& IfdBuilder::Data(std::uint16_t tag, Bytes data) {
    Value(tag, 4, 1, std::move(data));
    entries_.back().isData = true;
    return *this;
}

IfdBuilder& IfdBuilder::EntryCount(std::uint32_t stated) {
    statedCount_ = stated;
    return *this;
}

IfdBuilder& IfdBuilder::Camera(std::string_view make, std::string_view model) {
    return Ascii(0x010F, make).Ascii(0x0110, model);
}

IfdBuilder& IfdBuilder::Preview(const Bytes& jpeg) {
    return Data(0x0201, jpeg).Long(0x0202, {static_cast<std::uint32_t>(jpeg.size())});
}

IfdBuilder& IfdBuilder::Picture(std::uint32_t width, std::uint32_t height,
                                std::uint32_t photometric, const Bytes& pixels) {
    Long(0x0100, {width}).Long(0x0101, {height}).Short(0x0102, {8, 8, 8}).Short(0x0103, {1});
    Short(0x0106, {photometric}).Data(0x0111, pixels);
    return Long(0x0117, {static_cast<std::uint32_t>(pixels.size())}).Short(0x011C, {1});
}

std::uint32_t IfdBuilder::Size() const {
    std::size_t size = 2 + 12 * entries_.size() + 4;
    for (const Entry& entry : entries_)
        if (entry.isData || (!entry.raw && entry.value.size() > 4))
            size += (entry.value.size() + 1) / 2 * 2;
    return static_cast<std::uint32_t>(size);
}

IfdBuilder& TiffBuilder::Add(bool chained) {
    ifds_.push_back(IfdBuilder(order_));
    ifds_.back().chained_ = chained;
    return ifds_.back();
}

IfdBuilder& TiffBuilder::Ifd() { return Add(true); }
IfdBuilder& TiffBuilder::SubIfd() { return Add(false); }

TiffBuilder& TiffBuilder::Header(std::string_view header) {
    header_ = FromText(header);
    return *this;
}

TiffBuilder& TiffBuilder::Trailer(Bytes bytes) {
    trailer_ = std::move(bytes);
    return *this;
}

TiffBuilder& TiffBuilder::LastNextOffset(std::uint32_t offset) {
    lastNext_ = offset;
    return *this;
}

Bytes TiffBuilder::Build() {
    constexpr std::uint32_t kTiffHeader = 8;
    std::uint32_t position =
        header_.empty() ? kTiffHeader : static_cast<std::uint32_t>(header_.size());
    std::vector<IfdBuilder*> chain;
    for (IfdBuilder& ifd : ifds_) {
        ifd.position_ = position;
        position += ifd.Size();
        if (ifd.chained_) chain.push_back(&ifd);
    }

    ByteWriter file(order_);
    file.Raw(header_);
    if (header_.empty())
        file.Raw(FromText(order_ == Order::kLittle ? "II" : "MM"))
            .U16(42)
            .U32(chain.empty() ? lastNext_ : chain.front()->position_);
    std::size_t chained = 0;
    for (IfdBuilder& ifd : ifds_) {
        Bytes values;
        const auto count = static_cast<std::uint32_t>(ifd.entries_.size());
        const std::uint32_t valuePosition = ifd.position_ + 2 + 12 * count + 4;
        file.U16(ifd.statedCount_ >= 0 ? static_cast<std::uint32_t>(ifd.statedCount_) : count);
        for (const IfdBuilder::Entry& entry : ifd.entries_) {
            Bytes value = entry.value;
            if (!entry.links.empty()) {
                ByteWriter links(order_);
                for (const IfdBuilder* target : entry.links) links.U32(target->position_);
                value = links.bytes;
            }
            file.U16(entry.tag).U16(entry.type).U32(entry.count);
            if (!entry.isData && value.size() <= 4) {
                value.resize(4);
                file.Raw(value);
                continue;
            }
            file.U32(valuePosition + static_cast<std::uint32_t>(values.size()));
            PadToEven(value);
            values = std::move(values) + value;
        }
        const bool isLast = ifd.chained_ && ++chained == chain.size();
        file.U32(isLast ? lastNext_ : ifd.chained_ ? chain[chained]->position_ : 0).Raw(values);
    }
    return file.Raw(trailer_).bytes;
}

Bytes Segment(std::uint8_t marker, const Bytes& data) {
    const auto length = static_cast<std::uint32_t>(data.size() + 2);
    return ByteWriter(Order::kBig).U8(0xFF).U8(marker).U16(length).Raw(data).bytes;
}

Bytes JpegStream(const Bytes& segments, std::uint16_t width, std::uint16_t height) {
    const Bytes frame =
        ByteWriter(Order::kBig).U8(8).U16(height).U16(width).U8(1).U8(1).U8(0x11).U8(0).bytes;
    const Bytes scan = {1, 1, 0, 0, 63, 0};
    return Bytes{0xFF, 0xD8} + segments + Segment(0xC0, frame) + Segment(0xDA, scan) +
           Bytes{0x12, 0xFF, 0x00, 0x34, 0xFF, 0xD0, 0x56, 0xFF, 0xD9};
}

Bytes ExifJpeg(const Bytes& tiff) {
    return JpegStream(Segment(0xE1, Bytes{'E', 'x', 'i', 'f', 0, 0} + tiff), 640, 480);
}

Bytes Bmp(std::uint32_t width, std::uint32_t height, const Bytes& rows) {
    const auto size = static_cast<std::uint32_t>(rows.size());
    ByteWriter file(Order::kLittle);
    file.Raw(FromText("BM")).U32(size + 54).U32(0).U32(54);
    file.U32(40).U32(width).U32(height).U16(1).U16(24).U32(0).U32(size);
    return file.Pad(54).Raw(rows).bytes;
}

}  // namespace qmx::test
