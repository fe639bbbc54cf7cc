// The kernels for every processor and those for AVX2: equal to the bit, and within their rows.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "rawdev/cell_sums.h"
#include "rawdev/pipeline.h"
#include "rawdev/tone_curve.h"
#include "support/memory_stream.h"
#include "support/raw_builder.h"
#include "support/raw_seeds.h"

namespace qmx::test {
namespace {

std::vector<const Kernels*> EachKernels() {
    std::vector<const Kernels*> kernels = {&kPortableKernels};
    if (HasAvx2()) kernels.push_back(&kAvx2Kernels);
    return kernels;
}

constexpr std::uint16_t kUntouched = 0xA55A;

// A heap block of exactly the bytes given, so that one byte too far is seen.
template <class Unpack>
std::vector<std::uint16_t> Unpacked(const Bytes& bytes, std::size_t count, Unpack&& unpack) {
    const auto exact = std::make_unique<std::uint8_t[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), exact.get());
    std::vector<std::uint16_t> samples(count + 1, kUntouched);
    unpack(exact.get(), samples.data());
    EXPECT_EQ(samples.back(), kUntouched) << count;
    samples.pop_back();
    return samples;
}

TEST(Kernels, UnpackEveryCount) {
    for (const Kernels* kernels : EachKernels()) {
        for (std::uint32_t count = 1; count < 80; ++count) {
            for (std::uint32_t bits = 1; bits <= 16; ++bits) {
                const Samples samples = NoiseSamples(count, 1, bits, count);
                const auto unpack = [&](const std::uint8_t* src, std::uint16_t* dst) {
                    kernels->unpackBits(src, count, bits, dst);
                };
                ASSERT_EQ(Unpacked(PackBits(samples, bits), count, unpack), samples.values)
                    << count << " of " << bits;
            }
            const Samples samples = NoiseSamples(count, 1, 12, count);
            const auto packed = [&](const std::uint8_t* src, std::uint16_t* dst) {
                kernels->unpack12(src, count, dst);
            };
            ASSERT_EQ(Unpacked(PackBits(samples, 12), count, packed), samples.values) << count;
            const auto padded = [&](const std::uint8_t* src, std::uint16_t* dst) {
                kernels->unpack12Padded(src, count, dst);
            };
            ASSERT_EQ(Unpacked(PackPadded12(samples), count, padded), samples.values) << count;
        }
    }
}

// Noise holds groups of every kind; the second half of them rests at zero more often.
TEST(Kernels, DecodeGroupsAlike) {
    for (const std::uint32_t groups : {1u, 15u, 16u, 17u, 31u, 4000u}) {
        const Samples noise = NoiseSamples(16 * groups, 1, 8, groups);
        Bytes bytes(noise.values.begin(), noise.values.end());
        for (std::size_t i = bytes.size() / 2; i < bytes.size(); ++i)
            if (bytes[i] % 3 == 0) bytes[i] = static_cast<std::uint8_t>(bytes[i] % 2 * 0xFF);
        std::vector<std::uint16_t> expected;
        for (const Kernels* kernels : EachKernels()) {
            const auto samples =
                Unpacked(bytes, 14 * std::size_t{groups},
                         [&](auto* src, auto* dst) { kernels->unpackGroups(src, groups, dst); });
            if (expected.empty()) expected = samples;
            ASSERT_EQ(samples, expected) << groups;
        }
    }
}

constexpr CellBalance kBalances[] = {
    {{0.7f, 1.3f, 0.01f, 0.9f}, {100, 0, 7.5f, 3000}, false, {}},
    {{1e9f, 1.3f, 0.01f, 0.9f},
     {100, 0, 7.5f, 3000},
     true,
     {{1.6f, -0.5f, -0.1f}, {-0.02f, 1.3f, -0.3f}, {8e3f, -8e3f, 0}}},
};

auto AsCells(std::vector<std::uint16_t>& levels) {
    return reinterpret_cast<std::uint16_t(*)[kColors]>(levels.data());
}

// Sums and levels of a run of cells, the largest samples among them.
TEST(Kernels, SumAndFinishCellsAlike) {
    constexpr std::uint32_t kRowColors[] = {4, 14, 4, 14, 4, 14, 4, 0};
    for (const std::uint32_t side : {2u, 8u}) {
        for (const std::uint32_t width : {1u, 7u, 16u, 61u, 64u, 130u, 256 * side}) {
            Samples samples = NoiseSamples(width + kRowSlack, 8, 16, width);
            std::fill_n(samples.values.begin(), width / 2, std::uint16_t{0xFFFF});
            const std::uint16_t* rows[8];
            for (std::uint32_t y = 0; y < 8; ++y) rows[y] = &samples.values[y * samples.width];
            for (const CellBalance& balance : kBalances) {
                std::vector<std::uint16_t> expected;
                for (const Kernels* kernels : EachKernels()) {
                    CellSums sums;
                    SumBlock(*kernels, rows, kRowColors, side, side, width, sums);
                    const std::uint32_t cells = (width + side - 1) / side;
                    std::vector<std::uint16_t> levels(kColors * (cells + 1), kUntouched);
                    const auto finish = [&] {
                        EXPECT_EQ(levels.back(), kUntouched) << width;
                        if (expected.empty()) expected = levels;
                        ASSERT_EQ(levels, expected) << side << ' ' << width;
                    };
                    kernels->finishSums(
                        balance, {{sums[0], sums[1], sums[2], sums[3]}, cells, AsCells(levels)});
                    finish();
                    if (side != 2 || width % 2 != 0) continue;
                    ASSERT_EQ(sums[0][0], rows[0][0]) << width;
                    // One sample of each colour is its own sum.
                    kernels->finishSamples(
                        balance,
                        {{rows[0], rows[0] + 1, rows[1], rows[1] + 1}, cells, AsCells(levels)});
                    finish();
                }
            }
        }
    }
}

// Pixels of every count, at both steepnesses of the curve, and none behind them.
TEST(Kernels, ToneCellsAsTheTableSays) {
    for (const double white : {1000.0, 50000.0}) {
        ToneTable tone;
        FillToneTable(white, tone);
        for (std::uint32_t count = 1; count < 600; count += count < 40 ? 1 : 37) {
            Samples samples = NoiseSamples(kColors * count, 1, 16, count);
            samples.values[1] = 0xFFFF;
            samples.values[2] = 0;
            for (const Kernels* kernels : EachKernels()) {
                Bytes pixels(3 * std::size_t{count} + 1, 0xA5);
                kernels->toneCells(AsCells(samples.values), count, tone, pixels.data());
                for (std::size_t i = 0; i < 3 * std::size_t{count}; ++i)
                    ASSERT_EQ(pixels[i], tone.ByteOf(samples.values[i / 3 * kColors + 2 - i % 3]))
                        << count << ' ' << i;
                ASSERT_EQ(pixels.back(), 0xA5) << count;
            }
        }
    }
}

// From `bound` up all kernels count the same.
TEST(Kernels, CountBrightCellsAlike) {
    for (const std::uint32_t count : {1u, 2u, 255u, 256u, 257u, 1001u}) {
        Samples samples = NoiseSamples(kColors * count, 1, 16, count);
        samples.values[0] = 0xFFFF;
        const auto* cells =
            reinterpret_cast<const std::uint16_t(*)[kColors]>(samples.values.data());
        for (const std::uint32_t bound : {0u, 256u, 32768u, 65528u}) {
            std::vector<std::uint32_t> expected(3 * kHistogramBins);
            for (std::size_t i = 0; i < samples.values.size(); ++i)
                if (i % kColors < 3 && samples.values[i] >= bound)
                    ++expected[i % kColors * kHistogramBins + samples.values[i] / 8];
            for (const Kernels* kernels : EachKernels()) {
                std::vector<std::uint32_t> bins(kColors * kHistogramBins);
                kernels->countCells(
                    cells, count, bound,
                    reinterpret_cast<std::uint32_t(*)[kHistogramBins]>(bins.data()));
                for (std::size_t i = 0; i < expected.size(); ++i)
                    if (i % kHistogramBins * 8 >= bound) {
                        ASSERT_EQ(bins[i], expected[i]) << i;
                    }
            }
        }
    }
}

TEST(Kernels, DevelopEveryLayoutAlike) {
    if (!HasAvx2()) GTEST_SKIP() << "one kind of kernels only";
    for (const SeedFile& seed : RawSeeds()) {
        for (const std::uint32_t level : {0u, 1u, 3u}) {
            Bytes bitmaps[2];
            for (const Kernels* kernels : EachKernels()) {
                RawDecodeState state = StateOf(seed.bytes);
                state.kernels = kernels;
                MemoryStream stream;
                DevelopView(state, &stream, level);
                bitmaps[kernels == &kAvx2Kernels] = stream.bytes;
            }
            EXPECT_EQ(bitmaps[0], bitmaps[1]) << seed.name << ' ' << level;
        }
    }
}

}  // namespace
}  // namespace qmx::test
