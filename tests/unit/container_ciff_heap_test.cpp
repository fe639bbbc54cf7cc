// Canon CRW: heaps and previews, sound and hostile.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "parse/containers/container.h"
#include "support/ciff_builder.h"
#include "support/memory_stream.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

constexpr Order kLittle = Order::kLittle;
constexpr Order kOrders[] = {Order::kLittle, Order::kBig};

const CanonMakerFields& FieldsOf(const ImageInfo& info) {
    return MakerRecord<CanonMakerFields>(info);
}

ImageInfo InfoOf(const CiffHeap& root) { return Parse(CiffFile(root)).info; }

struct Delivered {
    std::uint8_t result;
    std::vector<std::uint8_t> bytes;
    int writes;
};

Delivered Deliver(const Bytes& file, bool wantPrimary) {
    BytesContext context(file);
    MemoryStream stream;
    stream.bytes = {1, 2};  // left from before
    stream.position = 2;
    context.ctx.outStream = &stream;
    const std::uint8_t result = ParseContainer(context.ctx, wantPrimary);
    EXPECT_EQ(context.ctx.thumbDone, stream.writes);
    return {result, stream.bytes, stream.writes};
}

TEST(CiffHeaps, EntryCountsThatAreNotTrue) {
    CiffHeap none = NamedHeap();
    none.EntryCount(0);
    EXPECT_STREQ(InfoOf(none).cameraMake, "");
    for (const std::uint32_t count : {1u, 2u, 0xFFFFu}) {
        CiffHeap more = NamedHeap();
        more.EntryCount(count);
        EXPECT_STREQ(InfoOf(more).cameraMake, "Canon") << count;
    }
}

// Heap ids are those of the two kinds of heaps only; their lower bytes are free.
TEST(CiffHeaps, AreKnownByTheirIds) {
    struct Case {
        std::uint32_t type;
        bool entered;
    };
    for (const auto& [type, entered] : {Case{0x2800, true},
                                        {0x28FF, true},
                                        {0x3002, true},
                                        {0xA807, true},
                                        {0x2007, false},
                                        {0x2900, false},
                                        {0x3100, false},
                                        {0x1800, false},
                                        {0x3FFF, false}}) {
        CiffHeap root(kLittle);
        root.Heap(type, NamedHeap());
        EXPECT_EQ(InfoOf(root).cameraMake == "Canon"sv, entered) << type;
    }
}

TEST(CiffHeaps, NestEightDeep) {
    for (const int heaps : {1, 2, 7, 8, 9, 20}) {
        CiffHeap heap = NamedHeap();
        for (int i = 1; i < heaps; ++i) {
            CiffHeap outer(kLittle);
            outer.Heap(0x300A, heap);
            heap = outer;
        }
        EXPECT_EQ(InfoOf(heap).cameraMake == "Canon"sv, heaps <= 8) << heaps;
    }
}

// The data of an inline entry is no place: its heap, of eight bytes, is where the entry before had
// its data.
TEST(CiffHeaps, InlineHeapsTakeThePlaceBefore) {
    const auto directory = static_cast<std::uint32_t>(8 + kCiffNames.size());
    CiffHeap inner(kLittle);
    inner.Longs(0x0001, {0, directory}).Text(0x080A, kCiffNames);
    CiffHeap root(kLittle);
    root.Data(0x0001, inner.Build()).Inline(0x300A, {0, 0});
    EXPECT_STREQ(InfoOf(root).cameraMake, "Canon");
    CiffHeap otherPlace(kLittle);
    otherPlace.Data(0x0001, inner.Build()).Data(0x0002, Bytes(8)).Inline(0x300A, {0, 0});
    EXPECT_STREQ(InfoOf(otherPlace).cameraMake, "");
}

// Only the file bounds what a heap refers to.
TEST(CiffHeaps, DataMayLieOutside) {
    CiffHeap root(kLittle);
    root.Text(0x0001, kCiffNames);
    CiffHeap inner(kLittle);
    const auto before = static_cast<std::uint32_t>(-static_cast<std::int32_t>(kCiffNames.size()));
    inner.Raw(0x080A, static_cast<std::uint32_t>(kCiffNames.size()), before);
    root.Heap(0x300A, inner);
    EXPECT_STREQ(InfoOf(root).cameraModel, "Canon EOS 20D");
}

// The root's place in its own directory, a thousand times.
TEST(CiffHeaps, ThatHoldThemselvesEnd) {
    constexpr std::uint32_t kTimes = 1000;
    constexpr auto kLength =
        static_cast<std::uint32_t>(kCiffNames.size()) + 2 + 10 * (kTimes + 1) + 4;
    CiffHeap root = NamedHeap();
    for (std::uint32_t i = 0; i < kTimes; ++i) root.Raw(0x300A, kLength, 0);
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
    const auto directory = static_cast<std::uint32_t>(kCiffNames.size()) + kHeaps * 4;
    ByteWriter pointers(kLittle);
    for (std::uint32_t i = 0; i < kHeaps; ++i) pointers.U32(directory);
    root.Data(0x0001, pointers.bytes);
    for (std::uint32_t i = 0; i < kHeaps; ++i)
        root.Raw(0x300A, static_cast<std::uint32_t>(kCiffNames.size()) + (i + 1) * 4, 0);
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
            const Bytes file = CiffFile(root);
            const ImageInfo info = Parse(file).info;
            Deliver(file, false);
            if (position == 0x7FFF0000 || position == 0x00010000) {  // the others are negative
                EXPECT_STREQ(info.cameraMake, "Canon") << length;
                EXPECT_EQ(FieldsOf(info).serialNumber, INT_UNSET) << length;
                EXPECT_EQ(FieldsOf(info).macroMode, INT_UNSET) << length;
            }
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
        Bytes changed = file;
        const Bytes bytes = ByteWriter(kLittle).U32(length).bytes;
        std::copy(bytes.begin(), bytes.end(), changed.begin() + 2);
        BytesContext context(changed);
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
    for (const Order order : kOrders) {
        for (const bool wantPrimary : {false, true}) {
            for (const Bytes& stored : {jpeg, unmarked}) {
                const Delivered delivered = Deliver(FullCiff(order, stored), wantPrimary);
                EXPECT_EQ(delivered.result, 1);
                EXPECT_EQ(delivered.bytes, jpeg);
            }
        }
    }
}

TEST(CiffPreview, OnlyOneIsDelivered) {
    const Bytes first = JpegStream({}, 64, 48);
    const Bytes second = JpegStream({}, 640, 480);
    struct Case {
        const char* what;
        CiffHeap root;
        std::uint8_t result;
        Bytes bytes;
    };
    const Bytes none = {1, 2};
    const auto size = static_cast<std::uint32_t>(first.size());
    CiffHeap nameless(kLittle);
    nameless.Data(0x2007, first);
    const Case cases[] = {
        {"none", NamedHeap(), 0, none},
        {"two", NamedHeap().Data(0x2007, first).Data(0x2007, second), 1, first},
        {"first cut", NamedHeap().Raw(0x2007, 0xFFFFFFFE, 0).Data(0x2007, second), 1, second},
        {"first empty", NamedHeap().Raw(0x2007, 0, 0).Data(0x2007, second), 1, second},
        {"cut", NamedHeap().Raw(0x2007, 0x7FFFFFFF, 0), 0, none},
        {"behind the end", NamedHeap().Raw(0x2007, 1, 0x7FFF0000), 0, none},
        {"eight bytes of the place before", NamedHeap().Data(0x0001, first).Inline(0x2007, {9, 9}),
         1, Bytes(first.begin(), first.begin() + 8)},
        {"in a lower heap", NamedHeap().Heap(0x300A, CiffHeap(kLittle).Data(0x2007, first)), 1,
         first},
        {"same place", NamedHeap().Data(0x0001, first).Raw(0x2007, size, kCiffNames.size()), 1,
         first},
        {"no make", nameless, 0, first},
    };
    for (const Case& c : cases) {
        const Delivered delivered = Deliver(CiffFile(c.root), false);
        EXPECT_EQ(delivered.result, c.result) << c.what;
        EXPECT_EQ(delivered.bytes, c.bytes) << c.what;
    }
}

TEST(CiffHeaps, SurviveBeingCutAnywhere) {
    for (const Order order : kOrders) {
        const Bytes whole = FullCiff(order, JpegStream({}, 64, 48));
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            EXPECT_LE(Deliver(cut, size % 2 != 0).bytes.size(), size + 2);
        }
    }
}

TEST(CiffHeaps, SurviveEveryByteChanged) {
    for (const Order order : kOrders) {
        Bytes file = FullCiff(order, JpegStream({}, 64, 48));
        for (std::uint8_t& byte : file) {
            const std::uint8_t was = byte;
            for (const int change : {0x01, 0x40, 0x80, 0xFF}) {
                byte = static_cast<std::uint8_t>(was ^ change);
                EXPECT_LE(Deliver(file, false).writes, 1);
            }
            byte = was;
        }
    }
}

}  // namespace
}  // namespace qmx::test
