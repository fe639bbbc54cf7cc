#pragma once
// Builds small TIFF structures and JPEG files in memory, sound ones and broken ones.

#include <cstdint>
#include <deque>
#include <string_view>
#include <utility>
#include <vector>

namespace qmx::test {

using Bytes = std::vector<std::uint8_t>;

enum class Order { kLittle, kBig };

Bytes operator+(Bytes left, const Bytes& right);
Bytes FromText(std::string_view text);

struct Ratio {
    std::int64_t numerator;
    std::int64_t denominator = 1;
};

// Numbers in one byte order.
class ByteWriter {
public:
    explicit ByteWriter(Order order) : order_(order) {}
    ByteWriter& U8(std::uint32_t value);
    ByteWriter& U16(std::uint32_t value);
    ByteWriter& U32(std::uint32_t value);
    ByteWriter& Raw(const Bytes& bytes);
    ByteWriter& Sized(const Bytes& bytes);  // behind their length of 4 bytes
    ByteWriter& Pad(std::size_t size);      // zeros up to this length
    Bytes bytes;

private:
    Order order_;
};

class TiffBuilder;

// One directory; entries are written in the order of the calls.
class IfdBuilder {
public:
    using Values = std::vector<std::uint32_t>;
    using Ratios = std::vector<Ratio>;
    IfdBuilder& Byte(std::uint16_t tag, const Values& values) { return Numbers(tag, 1, values); }
    IfdBuilder& Short(std::uint16_t tag, const Values& values) { return Numbers(tag, 3, values); }
    IfdBuilder& Long(std::uint16_t tag, const Values& values) { return Numbers(tag, 4, values); }
    IfdBuilder& Rational(std::uint16_t tag, const Ratios& values) { return Pairs(tag, 5, values); }
    IfdBuilder& SRational(std::uint16_t tag, const Ratios& values) {
        return Pairs(tag, 10, values);
    }
    IfdBuilder& Ascii(std::uint16_t tag, std::string_view text);  // with its terminator
    IfdBuilder& Undefined(std::uint16_t tag, const Bytes& bytes);
    // Any type and count over any value bytes.
    IfdBuilder& Value(std::uint16_t tag, std::uint16_t type, std::uint32_t count, Bytes value);
    // The 4 bytes of the value field as they stand.
    IfdBuilder& Raw(std::uint16_t tag, std::uint16_t type, std::uint32_t count,
                    std::uint32_t field);
    // Offsets of other directories.
    IfdBuilder& Link(std::uint16_t tag, std::vector<const IfdBuilder*> targets);
    // A LONG that holds the offset of a block of data.
    IfdBuilder& Data(std::uint16_t tag, Bytes data);
    IfdBuilder& EntryCount(std::uint32_t stated);  // instead of the true one

    IfdBuilder& Camera(std::string_view make = "ACME", std::string_view model = "One");
    IfdBuilder& Preview(const Bytes& jpeg);
    // An uncompressed picture of three samples of 8 bits.
    IfdBuilder& Picture(std::uint32_t width, std::uint32_t height, std::uint32_t photometric,
                        const Bytes& pixels);

private:
    friend class TiffBuilder;
    struct Entry {
        std::uint16_t tag, type;
        std::uint32_t count;
        Bytes value;
        bool raw = false;
        bool isData = false;
        std::vector<const IfdBuilder*> links = {};
    };
    explicit IfdBuilder(Order order) : order_(order) {}
    IfdBuilder& Numbers(std::uint16_t tag, std::uint16_t type, const Values& values);
    IfdBuilder& Pairs(std::uint16_t tag, std::uint16_t type, const Ratios& values);
    std::uint32_t Size() const;

    Order order_;
    std::vector<Entry> entries_;
    std::int64_t statedCount_ = -1;
    bool chained_ = false;
    std::uint32_t position_ = 0;
};

class TiffBuilder {
public:
    explicit TiffBuilder(Order order = Order::kLittle) : order_(order) {}
    TiffBuilder(const TiffBuilder&) = delete;
    TiffBuilder& operator=(const TiffBuilder&) = delete;

    IfdBuilder& Ifd();     // the next directory of the chain
    IfdBuilder& SubIfd();  // one that only a link leads to
    // In place of the TIFF header: offsets count from its start and the first directory follows it,
    // as in the MakerNotes that stand for themselves.
    TiffBuilder& Header(std::string_view header);
    // Bytes that follow everything else.
    TiffBuilder& Trailer(Bytes bytes);
    // The next-directory offset of the last chained directory.
    TiffBuilder& LastNextOffset(std::uint32_t offset);

    Bytes Build();

private:
    IfdBuilder& Add(bool chained);

    Order order_;
    std::deque<IfdBuilder> ifds_;
    Bytes header_;
    Bytes trailer_;
    std::uint32_t lastNext_ = 0;
};

// A JPEG segment: marker, length, data.
Bytes Segment(std::uint8_t marker, const Bytes& data);

// SOI, the segments, a frame header of this size, a scan and EOI.
Bytes JpegStream(const Bytes& segments, std::uint16_t width, std::uint16_t height);

// A JPEG file whose first segment is Exif data.
Bytes ExifJpeg(const Bytes& tiff);

// A BMP file of 24 bits per pixel, of rows as they are stored.
Bytes Bmp(std::uint32_t width, std::uint32_t height, const Bytes& rows);

}  // namespace qmx::test
