// Canon CRW: heaps and previews, sound and hostile.

#include <algorithm>

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "support/ciff_builder.h"
#include "support/deliver.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

constexpr Order kLittle = Order::kLittle;
constexpr auto kNamesBytes = static_cast<std::uint32_t>(kCiffNames.size());

const CanonMakerFields& FieldsOf(const ImageInfo& info) {
    return MakerRecord<CanonMakerFields>(info);
}

ImageInfo InfoOf(const CiffHeap& root) { return Parse(CiffFile(root)).info; }

TEST(CiffHeaps, EntryCountsThatAreNotTrue) {
    for (const std::uint32_t count : {0u, 1u, 2u, 0xFFFFu})
        EXPECT_EQ(InfoOf(NamedHeap().EntryCount(count)).cameraMake == "Canon"sv, count != 0);
}

// Heap ids are those of the two kinds of heaps only; their lower bytes are free.
TEST(CiffHeaps, AreKnownByTheirIds) {
    const auto isEntered = [](std::uint32_t type) {
        return InfoOf(CiffHeap(kLittle).Heap(type, NamedHeap())).cameraMake == "Canon"sv;
    };
    for (const std::uint32_t type : {0x2800u, 0x28FFu, 0x3002u, 0xA807u})
        EXPECT_TRUE(isEntered(type)) << type;
    for (const std::uint32_t type : {0x2007u, 0x2900u, 0x3100u, 0x1800u, 0x3FFFu})
        EXPECT_FALSE(isEntered(type)) << type;
}

TEST(CiffHeaps, NestEightDeep) {
    CiffHeap heap = NamedHeap();
    for (int heaps = 1; heaps <= 20; ++heaps) {
        EXPECT_EQ(InfoOf(heap).cameraMake == "Canon"sv, heaps <= 8) << heaps;
        heap = CiffHeap(kLittle).Heap(0x300A, heap);
    }
}

// The data of an inline entry is no place: its heap, of eight bytes, is where the entry before had
// its data.
TEST(CiffHeaps, InlineHeapsTakeThePlaceBefore) {
    const auto directory = static_cast<std::uint32_t>(8 + kCiffNames.size());
    CiffHeap inner(kLittle);
    inner.Longs(0x0001, {0, directory}).Text(0x080A, kCiffNames);
    CiffHeap root(kLittle);
    root.Data(0x0001, inner.Build());
    EXPECT_STREQ(InfoOf(CiffHeap(root).Inline(0x300A, {0, 0})).cameraMake, "Canon");
    root.Data(0x0002, Bytes(8)).Inline(0x300A, {0, 0});
    EXPECT_STREQ(InfoOf(root).cameraMake, "");
}

// Only the file bounds what a heap refers to.
TEST(CiffHeaps, DataMayLieOutside) {
    CiffHeap inner(kLittle);
    inner.Raw(0x080A, kNamesBytes, 0 - kNamesBytes);
    const CiffHeap root = CiffHeap(kLittle).Text(0x0001, kCiffNames).Heap(0x300A, inner);
    EXPECT_STREQ(InfoOf(root).cameraModel, "Canon EOS 20D");
}

// The root's place in its own directory, a thousand times.
TEST(CiffHeaps, ThatHoldThemselvesEnd) {
    constexpr std::uint32_t kTimes = 1000;
    CiffHeap root = NamedHeap();
    for (std::uint32_t i = 0; i < kTimes; ++i)
        root.Raw(0x300A, kNamesBytes + 2 + 10 * (kTimes + 1) + 4, 0);
    BytesContext context(CiffFile(root));
    const std::int64_t work = context.ctx.workLeft;
    EXPECT_EQ(ParseContainer(context.ctx, false), 1);
    EXPECT_GE(context.ctx.workLeft, 0);
    EXPECT_LE(context.ctx.workLeft, work - 10 * kTimes);  // entries are not free
}

// Heaps that all hold one another: every path among them is different.
TEST(CiffHeaps, WorkIsBoundedByTheFilesSize) {
    constexpr std::uint32_t kHeaps = 200;
    // Heaps of one start whose lengths differ: each ends with its own pointer to the one directory.
    CiffHeap root = NamedHeap();
    root.Longs(0x0001, std::vector(kHeaps, kNamesBytes + kHeaps * 4));
    for (std::uint32_t i = 0; i < kHeaps; ++i) root.Raw(0x300A, kNamesBytes + (i + 1) * 4, 0);
    BytesContext context(CiffFile(root));
    EXPECT_EQ(ParseContainer(context.ctx, false), 1);
    EXPECT_EQ(context.ctx.readEnd, context.ctx.viewBase);
}

TEST(CiffHeaps, PlacesThatAreNotInTheFile) {
    for (const std::uint32_t position :
         {0x7FFF0000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0xFFFFFFE6u, 0x00010000u}) {
        for (const std::uint32_t length : {0u, 3u, 4u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
            CiffHeap root = NamedHeap();
            for (const std::uint32_t type :
                 {0x080Au, 0x080Bu, 0x1029u, 0x102Au, 0x102Du, 0x1038u, 0x1093u, 0x10AEu, 0x180Bu,
                  0x180Eu, 0x1810u, 0x1817u, 0x2007u, 0x2807u, 0x300Au})
                root.Raw(type, length, position);
            const ImageInfo info = InfoOf(root);
            Deliver(CiffFile(root));
            if (position != 0x7FFF0000 && position != 0x00010000) continue;  // negative ones
            EXPECT_STREQ(info.cameraMake, "Canon") << length;
            EXPECT_EQ(FieldsOf(info).serialNumber, INT_UNSET) << length;
            EXPECT_EQ(FieldsOf(info).macroMode, INT_UNSET) << length;
        }
    }
}

// Arrays of 2 GiB are read as far as they have a meaning.
TEST(CiffHeaps, ArraysBehindTheEndOfTheFile) {
    for (const std::uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        CiffHeap root = NamedHeap();
        root.Raw(0x1029, length, 0).Raw(0x102D, length, 0).Raw(0x1093, length, 0);
        EXPECT_EQ(FieldsOf(InfoOf(root)).focalType, 'C' | 'a' << 8) << length;
    }
}

TEST(CiffHeaps, HeaderLengthsThatAreNotTrue) {
    const Bytes file = FullCiff(kLittle, Bytes(9));
    for (const std::uint32_t length : {0u, 1u, 14u, 27u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        const Bytes header = ByteWriter(kLittle).Raw(FromText("II")).U32(length).bytes;
        BytesContext context(header + Bytes(file.begin() + 6, file.end()));
        ParseContainer(context.ctx, false);
        EXPECT_EQ(context.ctx.info.makerId, kMakerCanon);
        const std::int64_t end = static_cast<std::int32_t>(length) < 0 ? 0 : length;
        EXPECT_EQ(Position(context.ctx), std::min(end, context.ctx.fileSize)) << length;
    }
}

TEST(CiffPreview, IsDeliveredWhicheverIsWanted) {
    const Bytes jpeg = JpegStream({}, 640, 480);
    Bytes unmarked = jpeg;
    unmarked[0] = unmarked[1] = 0;
    for (const Order order : {Order::kLittle, Order::kBig})
        for (const bool wantPrimary : {false, true})
            for (const Bytes& stored : {jpeg, unmarked})
                EXPECT_EQ(Deliver(FullCiff(order, stored), wantPrimary).bytes, jpeg);
}

TEST(CiffPreview, OnlyOneIsDelivered) {
    const Bytes first = JpegStream({}, 64, 48);
    const Bytes second = JpegStream({}, 640, 480);
    const auto size = static_cast<std::uint32_t>(first.size());
    struct Case {
        const char* what;
        CiffHeap root;
        Bytes bytes;
    };
    // clang-format off
    const Case cases[] = {
        {"none", NamedHeap(), {}},
        {"two", NamedHeap().Data(0x2007, first).Data(0x2007, second), first},
        {"first cut", NamedHeap().Raw(0x2007, 0xFFFFFFFE, 0).Data(0x2007, second), second},
        {"first empty", NamedHeap().Raw(0x2007, 0, 0).Data(0x2007, second), second},
        {"cut", NamedHeap().Raw(0x2007, 0x7FFFFFFF, 0), {}},
        {"behind the end", NamedHeap().Raw(0x2007, 1, 0x7FFF0000), {}},
        {"eight bytes of the place before", NamedHeap().Data(0x0001, first).Inline(0x2007, {9, 9}),
         Bytes(first.begin(), first.begin() + 8)},
        {"in a lower heap", NamedHeap().Heap(0x300A, CiffHeap(kLittle).Data(0x2007, first)), first},
        {"same place", NamedHeap().Data(0x0001, first).Raw(0x2007, size, kNamesBytes), first},
    };
    // clang-format on
    for (const Case& c : cases) {
        const Delivered delivered = Deliver(CiffFile(c.root));
        EXPECT_EQ(delivered.result, !c.bytes.empty()) << c.what;
        EXPECT_EQ(delivered.bytes, c.bytes) << c.what;
    }
    const Delivered nameless = Deliver(CiffFile(CiffHeap(kLittle).Data(0x2007, first)));
    EXPECT_EQ(nameless.result, 0);
    EXPECT_EQ(nameless.bytes, first);
}

}  // namespace
}  // namespace qmx::test
