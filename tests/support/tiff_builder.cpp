#include "support/tiff_builder.h"

namespace qmx::test {
namespace {

constexpr std::uint32_t kSizes[] = {1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};

void PadToEven(Bytes& bytes) {
    if (bytes.size() % 2 != 0) bytes.push_back(0);
}

std::vector<Ratio> Ratios(const std::vector<std::uint32_t>& values) {
    std::vector<Ratio> ratios;
    for (const std::uint32_t value : values) ratios.push_back({value});
    return ratios;
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

ByteWriter& ByteWriter::Pad(std::size_t size) {
    if (bytes.size() < size) bytes.resize(size);
    return *this;
}

IfdBuilder& IfdBuilder::Value(std::uint16_t tag, std::uint16_t type, std::uint32_t count,
                              Bytes value) {
    entries_.push_back({.tag = tag, .type = type, .count = count, .value = std::move(value)});
    return *this;
}

IfdBuilder& IfdBuilder::Numbers(std::uint16_t tag, std::uint16_t type,
                                const std::vector<Ratio>& values) {
    ByteWriter writer(order_);
    for (const Ratio& value : values) {
        const auto numerator = static_cast<std::uint32_t>(value.numerator);
        switch (kSizes[type]) {
            case 1: writer.U8(numerator); break;
            case 2: writer.U16(numerator); break;
            case 4: writer.U32(numerator); break;
            default: writer.U32(numerator).U32(static_cast<std::uint32_t>(value.denominator));
        }
    }
    return Value(tag, type, static_cast<std::uint32_t>(values.size()), writer.bytes);
}

IfdBuilder& IfdBuilder::Byte(std::uint16_t tag, const std::vector<std::uint32_t>& values) {
    return Numbers(tag, 1, Ratios(values));
}
IfdBuilder& IfdBuilder::Short(std::uint16_t tag, const std::vector<std::uint32_t>& values) {
    return Numbers(tag, 3, Ratios(values));
}
IfdBuilder& IfdBuilder::Long(std::uint16_t tag, const std::vector<std::uint32_t>& values) {
    return Numbers(tag, 4, Ratios(values));
}
IfdBuilder& IfdBuilder::Rational(std::uint16_t tag, const std::vector<Ratio>& values) {
    return Numbers(tag, 5, values);
}
IfdBuilder& IfdBuilder::SRational(std::uint16_t tag, const std::vector<Ratio>& values) {
    return Numbers(tag, 10, values);
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

std::uint32_t IfdBuilder::Size() const {
    std::size_t size = 2 + 12 * entries_.size() + 4;
    for (const Entry& entry : entries_)
        if (entry.isData || (!entry.raw && entry.value.size() > 4))
            size += (entry.value.size() + 1) / 2 * 2;
    return static_cast<std::uint32_t>(size);
}

TiffBuilder::~TiffBuilder() {
    for (const IfdBuilder* ifd : ifds_) delete ifd;
}

IfdBuilder& TiffBuilder::Add(bool chained) {
    ifds_.push_back(new IfdBuilder(order_));
    ifds_.back()->chained_ = chained;
    return *ifds_.back();
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
    for (IfdBuilder* ifd : ifds_) {
        ifd->position_ = position;
        position += ifd->Size();
        if (ifd->chained_) chain.push_back(ifd);
    }

    ByteWriter file(order_);
    if (header_.empty()) {
        file.Raw(FromText(order_ == Order::kLittle ? "II" : "MM")).U16(42);
        file.U32(chain.empty() ? lastNext_ : chain.front()->position_);
    } else {
        file.Raw(header_);
    }
    std::size_t chained = 0;
    for (IfdBuilder* ifd : ifds_) {
        Bytes values;
        std::uint32_t valuePosition =
            ifd->position_ + 2 + 12 * static_cast<std::uint32_t>(ifd->entries_.size()) + 4;
        file.U16(ifd->statedCount_ >= 0 ? static_cast<std::uint32_t>(ifd->statedCount_)
                                        : static_cast<std::uint32_t>(ifd->entries_.size()));
        for (const IfdBuilder::Entry& entry : ifd->entries_) {
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
        std::uint32_t next = 0;
        if (ifd->chained_) {
            ++chained;
            next = chained < chain.size() ? chain[chained]->position_ : lastNext_;
        }
        file.U32(next).Raw(values);
    }
    return file.Raw(trailer_).bytes;
}

Bytes Segment(std::uint8_t marker, const Bytes& data) {
    return ByteWriter(Order::kBig)
        .U8(0xFF)
        .U8(marker)
        .U16(static_cast<std::uint32_t>(data.size() + 2))
        .Raw(data)
        .bytes;
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

}  // namespace qmx::test
