#include "unit/bare_note.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "makernote/dispatch.h"
#include "support/deliver.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

constexpr std::size_t kTiffHeader = 8;
constexpr std::size_t kEmptyDirectory = 6;

IfdBuilder& AddEntries(TiffBuilder& tiff, std::size_t lead) {
    for (std::size_t i = 0; i < lead; ++i) tiff.SubIfd();
    return tiff.Ifd();
}

}  // namespace

BareNote::BareNote(MakerId maker, std::string_view header, std::int32_t modelId, Order order,
                   std::size_t lead, std::optional<Order> fileOrder)
    : maker_(maker),
      header_(header),
      modelId_(modelId),
      order_(order),
      fileOrder_(fileOrder.value_or(order)),
      dropped_(kTiffHeader + lead * kEmptyDirectory),
      tiff_(order),
      entries_(AddEntries(tiff_, lead)) {}

IfdBuilder& BareNote::Directory(std::uint16_t tag) {
    IfdBuilder& directory = tiff_.SubIfd();
    entries_.Link(tag, {&directory});
    return directory;
}

Bytes BareNote::Build() {
    const Bytes tiff = tiff_.Build();
    return Bytes(kPosition, 0xEE) + FromText(header_) +
           Bytes(tiff.begin() + static_cast<std::ptrdiff_t>(dropped_), tiff.end());
}

ImageInfo BareNote::Decode(const Bytes& bytes) const {
    const std::uint16_t order = fileOrder_ == Order::kLittle ? kLittleEndian : kBigEndian;
    const auto base = static_cast<std::uint32_t>(kPosition + header_.size() - dropped_);
    BytesContext context(bytes, order);
    ParseContext& ctx = context.ctx;
    MemoryStream stream;  // without one previews are passed over
    ctx.outStream = &stream;
    ctx.info = before;
    ctx.info.makerId = maker_;
    ctx.info.modelId = modelId_;
    ctx.tiffBase = base;
    SeekTo(ctx, kPosition);
    ParseMakerNote(ctx, base);
    EXPECT_EQ(ctx.byteOrder, order);
    EXPECT_EQ(ctx.tiffBase, base);
    return ctx.info;
}

void BareNote::ExpectOnlyRecord(const Bytes& bytes, std::size_t recordSize) const {
    const ImageInfo info = Decode(bytes);
    EXPECT_TRUE(std::all_of(info.makerFields + recordSize, std::end(info.makerFields),
                            [](std::uint8_t byte) { return byte == 0; }));
    EXPECT_EQ(info.makerId, maker_);
    EXPECT_EQ(info.hasGps, 0);
}

void BareNote::ExpectHarmless(std::size_t recordSize) {
    const Bytes bytes = Build();
    for (std::size_t i = kPosition; i < bytes.size(); ++i) {
        ExpectOnlyRecord(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(i)),
                         recordSize);
        for (const int value : {0x00, 0x7F, 0x80, 0xFF, bytes[i] ^ 1}) {
            Bytes altered = bytes;
            altered[i] = static_cast<std::uint8_t>(value);
            ExpectOnlyRecord(altered, recordSize);
        }
    }
    const std::size_t countAt = kPosition + header_.size() + (order_ == Order::kBig ? 1 : 0);
    for (const std::uint32_t count : {0u, bytes[countAt] + 1u, 255u, 65535u}) {
        entries_.EntryCount(count);
        ExpectOnlyRecord(Build(), recordSize);
    }
}

Bytes DeliveredBytes(const Bytes& file, bool wantPrimary) {
    return Deliver(file, wantPrimary).bytes;
}

void ExpectPreview(const Bytes& jpeg,
                   const std::function<Bytes(std::uint32_t, std::uint32_t)>& photo) {
    const auto length = static_cast<std::uint32_t>(jpeg.size());
    const auto position = static_cast<std::uint32_t>(photo(0, length).size()) - length;
    EXPECT_EQ(DeliveredBytes(photo(position, length)), jpeg);
    EXPECT_EQ(DeliveredBytes(ExifJpeg(photo(position, length))), jpeg);
    for (const std::uint32_t stated : {0u, length + 100, 0xFFFFFFFFu})
        EXPECT_EQ(DeliveredBytes(photo(position, stated)), Bytes()) << stated;
    for (const std::uint32_t nowhere : {0u, position - 3, position + 1, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(DeliveredBytes(photo(nowhere, length)), Bytes()) << nowhere;
}

}  // namespace qmx::test
