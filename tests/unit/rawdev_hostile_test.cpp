// Damaged and lying raw files: refused, or a whole picture with black where data are missing.

#include <gtest/gtest.h>

#include "rawdev/pipeline.h"
#include "support/memory_stream.h"
#include "support/raw_seeds.h"

namespace qmx::test {
namespace {

// 1 or 0; checks that the stream is whole or untouched.  The bytes are an exact copy, so that
// sanitizers see a read beyond them.
std::uint32_t DevelopExact(const Bytes& bytes, std::uint32_t shrinkLevel) {
    const Bytes exact(bytes.begin(), bytes.end());
    RawDecodeState state = StateOf(exact);
    MemoryStream stream;
    const std::uint32_t written = DevelopView(state, &stream, shrinkLevel);
    EXPECT_EQ(stream.writes, written != 0 ? 3 : 0);
    EXPECT_EQ(state.error, S_OK);
    if (written != 0) {
        std::uint64_t width = state.outputWidth;
        std::uint64_t height = state.outputHeight;
        if ((state.flip & 4) != 0) std::swap(width, height);
        EXPECT_EQ(stream.bytes.size(), 54 + (width * 3 + 3) / 4 * 4 * height);
    }
    return written;
}

TEST(HostileRaw, SoundSeedsDevelop) {
    for (const SeedFile& seed : RawSeeds())
        for (const std::uint32_t level : {0u, 1u, 3u})
            EXPECT_EQ(DevelopExact(seed.bytes, level), 1u) << seed.name;
}

TEST(HostileRaw, TruncatedAnywhere) {
    for (const SeedFile& seed : RawSeeds())
        for (std::size_t length = 0;
             length<seed.bytes.size(); length += seed.bytes.size()> 20000 ? 9700 : 97)
            DevelopExact(
                Bytes(seed.bytes.begin(), seed.bytes.begin() + static_cast<std::ptrdiff_t>(length)),
                length % 2 == 0 ? 1 : 3);
}

TEST(HostileRaw, EveryByteOfTheDirectoriesFlipped) {
    for (const SeedFile& seed : RawSeeds()) {
        if (seed.bytes.size() > 20000) continue;  // takes too long
        Bytes bytes = seed.bytes;
        const std::size_t end = std::min<std::size_t>(bytes.size(), 300);
        for (std::size_t i = 0; i < end; ++i) {
            bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ 0xFF);
            DevelopExact(bytes, 3);
            bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ 0xFF);
        }
    }
}

TEST(HostileRaw, DamagedSampleData) {
    for (const SeedFile& seed : RawSeeds()) {
        Bytes bytes = seed.bytes;
        for (std::size_t i = bytes.size() / 3; i < bytes.size(); i += 61) {
            bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ 0xFF);
            if (i % 5 == 0) DevelopExact(bytes, 1);
        }
    }
}

TEST(HostileRaw, DimensionsThatNoDataBack) {
    for (const std::uint32_t compression : {0u, 1u, 6u, 7u, 99u, 32769u, 32773u})
        for (const std::uint32_t bits : {0u, 8u, 12u, 14u, 16u, 64u})
            for (const std::uint32_t side : {65535u, 0xFFFFFFFFu, 0u})
                EXPECT_EQ(
                    DevelopExact(BuildRaw(FormOf(side, side, bits, compression), Bytes(1000)), 0),
                    0u);
    // As small as it gets.
    EXPECT_EQ(DevelopExact(BuildRaw(FormOf(1, 1, 16, 1), Bytes(1000)), 1), 0u);
    EXPECT_EQ(DevelopExact(BuildRaw(FormOf(1, 22, 16, 1), Bytes(1000)), 3), 1u);
}

TEST(HostileRaw, MarginsBeyondTheImage) {
    // The first rows of this width are 14 columns wide, its height is too small for its margins.
    for (const std::uint32_t width : {3130u, 3690u, 4290u, 4330u, 3770u}) {
        for (const std::uint32_t height : {22u, 30u, 61u, 65535u}) {
            TiffBuilder tiff;
            tiff.Ifd()
                .Short(2, {width})
                .Short(3, {height})
                .Ascii(271, "LEICA")
                .Ascii(272, "X")
                .Long(273, {8});
            Bytes file = tiff.Build();
            file.resize(std::size_t{width} * 2 * 30);
            DevelopExact(file, 1);
        }
    }
    RawForm form = FormOf(7262, 30, 16, 1);  // 5444 rows are wanted of the 30
    form.make = "Hasselblad";
    DevelopExact(BuildRaw(form, Bytes(7262 * 60)), 3);
}

TEST(HostileRaw, DirectoriesThatPointAnywhere) {
    for (const std::uint32_t next : {0u, 1u, 8u, 9u, 50u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        TiffBuilder tiff;
        IfdBuilder& ifd = tiff.Ifd();
        ifd.Long(256, {64}).Long(257, {48}).Short(258, {12}).Short(259, {1}).Long(273, {0});
        ifd.Link(330, std::vector<const IfdBuilder*>(300, &ifd)).Link(34665, {&ifd});
        EXPECT_EQ(DevelopExact(tiff.LastNextOffset(next).Trailer(Bytes(5000)).Build(), 3), 1u);
        TiffBuilder empty;
        DevelopExact(empty.LastNextOffset(next).Trailer(Bytes(5000)).Build(), 3);
    }
    for (const std::uint32_t offset : {0u, 1u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        for (const std::uint32_t count : {1u, 0x20000000u, 0xFFFFFFFFu}) {
            RawForm form = FormOf(64, 48, 12, 1);
            form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
                for (const int tag : {305, 306, 330, 33422, 34665, 50454, 50714, 50728})
                    ifd.Raw(static_cast<std::uint16_t>(tag), 4, count, offset);
            };
            DevelopExact(BuildRaw(form, Bytes(64 * 48 * 3 / 2)), 3);
        }
    }
}

TEST(HostileRaw, StripsAndAreasAnywhere) {
    for (const char* make : {"ACME", "Hasselblad", "Panasonic"}) {
        for (const std::uint32_t compression : {0u, 1u, 6u, 7u, 32769u, 32773u}) {
            for (const std::uint32_t offset : {0u, 1u, 700u, 4999u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
                for (const std::uint32_t bits : {0u, 8u, 12u, 16u, 64u, 0xFFFFu}) {
                    RawForm form = FormOf(64, 48, bits, compression);
                    form.make = make;
                    form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
                        ifd.Long(273, {offset}).Long(280, {offset}).Short(45, {4});
                        if (offset % 2 != 0) ifd.Byte(50706, {1, 4, 0, 0});
                    };
                    DevelopExact(BuildRaw(form, Bytes(4000)), offset % 2);
                }
            }
        }
    }
    const std::vector<std::uint32_t> areas[] = {
        {0, 0, 65535, 65535}, {47, 63, 48, 64},        {10, 10, 5, 5}, {0, 0, 0, 0},
        {26, 63, 48, 64},     {0xFFFFFFFF, 0, 22, 64}, {20, 0, 0, 64}};
    for (const auto& area : areas) {
        RawForm form = FormOf(64, 48, 16, 1);
        form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
            ifd.Byte(50706, {1, 4, 0, 0}).Long(50829, area);
        };
        DevelopExact(BuildRaw(form, Bytes(64 * 48 * 2)), 1);
    }
}

// Rows of this width take 80 bytes of blocks, but 68 a row are what tells blocks from words.
TEST(HostileRaw, BlockStreamsCutAnywhere) {
    for (const std::uint32_t format : {0u, 4u}) {
        for (std::uint32_t length = 68 * 22; length < 68 * 23; ++length) {
            TiffBuilder tiff;
            IfdBuilder& ifd = tiff.Ifd().Short(2, {60}).Short(3, {22});
            ifd.Ascii(271, "LEICA").Short(45, {format}).Long(280, {200});
            const Bytes head = ByteWriter(Order::kLittle).Raw(tiff.Build()).Pad(200).bytes;
            EXPECT_EQ(DevelopExact(head + Bytes(length, 0x5A), length % 2), 1u);
        }
    }
}

TEST(HostileRaw, TileTablesThatLie) {
    const Samples samples = SmoothSamples(64, 48, 12);
    struct Case {
        std::uint32_t width, height;
    };
    const Case cases[] = {
        {1, 1}, {0xFFFFFFFF, 0xFFFFFFFF}, {16, 0xFFFFFFFF}, {0x80000000, 16}, {3, 7}, {65535, 1}};
    for (const std::uint32_t compression : {1u, 7u}) {
        for (const Case& c : cases) {
            for (const std::uint32_t count : {1u, 4u, 0x40000000u, 0xFFFFFFFFu}) {
                RawForm form = FormOf(64, 48, 12, compression);
                form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
                    ifd.Byte(50706, {1, 4, 0, 0}).Long(322, {c.width}).Long(323, {c.height});
                    ifd.Raw(324, 4, count, 8).Raw(325, 4, count, 8);
                };
                DevelopExact(BuildRaw(form, WriteLosslessJpeg(samples, {})), 1);
            }
        }
    }
}

// Every tile is the same long stream, of which the image shows only the first column.
TEST(HostileRaw, TilesThatShareOneStream) {
    const Bytes stream = WriteLosslessJpeg(
        {60000, 20, std::vector<std::uint16_t>(60000 * 20, 2048)}, {.components = 4});
    const auto build = [&](std::uint32_t offset) {
        RawForm form = FormOf(22, 65535, 12, 7);
        form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
            ifd.Byte(50706, {1, 4, 0, 0}).Long(322, {0xFFFFFFFF}).Long(323, {1});
            ifd.Long(324, std::vector<std::uint32_t>(65535, offset));
        };
        return BuildRaw(form, stream);
    };
    const Bytes file = build(0);
    const auto found = std::search(file.begin(), file.end(), stream.begin(), stream.end());
    EXPECT_EQ(DevelopExact(build(static_cast<std::uint32_t>(found - file.begin())), 3), 1u);
}

// Thousands of entries that all name the same text block.
TEST(HostileRaw, TextsThatAreReadOverAndOver) {
    TiffBuilder tiff;
    IfdBuilder& ifd = tiff.Ifd();
    for (int i = 0; i < 60000; ++i) ifd.Raw(50454, 7, 65536, 8);
    DevelopExact(tiff.Build(), 3);
}

TEST(HostileRaw, HuffmanTablesThatLie) {
    const Samples samples = SmoothSamples(64, 48, 12);
    const Bytes sound = BuildRaw(FormOf(64, 48, 12, 7), WriteLosslessJpeg(samples, {}));
    const Bytes table = {0xFF, 0xC4};
    const auto found = std::search(sound.begin(), sound.end(), table.begin(), table.end());
    ASSERT_NE(found, sound.end());
    const auto at = static_cast<std::size_t>(found - sound.begin());
    for (std::size_t i = at; i < at + 70; ++i) {
        for (const int value : {0, 1, 2, 16, 17, 127, 255}) {
            Bytes bytes = sound;
            bytes[i] = static_cast<std::uint8_t>(value);
            DevelopExact(bytes, 3);
        }
    }
}

}  // namespace
}  // namespace qmx::test
