// Measures the development of raw files against the least that any reader of their samples must do:
// a plain sequential read and sum of the same bytes, file mapping included.
//
//     develop_bench [MEGAPIXELS]...

#include "copy_stream.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "parse/core/mapped_file.h"
#include "rawdev/pipeline.h"

namespace qmx::bench {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

constexpr int kRounds = 9;

struct Layout {
    const char* name;
    std::uint32_t compression;
    std::uint32_t bits;
    const char* make;
};
constexpr Layout kLayouts[] = {
    {"8-bit", 1, 8, "ACME"},     {"packed-12", 1, 12, "ACME"},   {"padded-12", 32769, 12, "ACME"},
    {"words-16", 1, 16, "ACME"}, {"blocks", 1, 12, "Panasonic"}, {"lossless-jpeg", 7, 14, "ACME"},
};

void PutWord(Bytes& out, std::uint32_t value) {
    out.push_back(static_cast<std::uint8_t>(value));
    out.push_back(static_cast<std::uint8_t>(value >> 8));
}

void PutEntry(Bytes& out, std::uint32_t tag, std::uint32_t type, std::uint32_t count,
              std::uint32_t value) {
    PutWord(out, tag);
    PutWord(out, type);
    PutWord(out, count);
    PutWord(out, count >> 16);
    PutWord(out, value);
    PutWord(out, value >> 16);
}

class Noise {
public:
    std::uint32_t Next() { return (state_ = state_ * 1664525u + 1013904223u) >> 8; }

private:
    std::uint32_t state_ = 1;
};

// Two components, categories 0 to 12 in codes of 2 to 9 bits; most differences take 4 to 6 bits, as
// those of photos do.
class JpegWriter {
public:
    void Put(std::uint32_t value, std::uint32_t count) {
        buffer_ = buffer_ << count | value;
        held_ += count;
        while (held_ >= 8) {
            held_ -= 8;
            const auto byte = static_cast<std::uint8_t>(buffer_ >> held_);
            bytes.push_back(byte);
            if (byte == 0xFF) bytes.push_back(0);
        }
    }
    Bytes bytes;

private:
    std::uint64_t buffer_ = 0;
    std::uint32_t held_ = 0;
};

Bytes LosslessStream(std::uint32_t width, std::uint32_t height) {
    // Lengths: three codes of 2 bits, then one of each length from 3 on.
    constexpr std::uint8_t kOrder[] = {4, 5, 6, 3, 7, 2, 8, 1, 0, 9, 10};
    JpegWriter out;
    out.bytes = {0xFF, 0xD8, 0xFF, 0xC4, 0, 30, 0, 0, 3, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0};
    out.bytes.insert(out.bytes.end(), std::begin(kOrder), std::end(kOrder));
    const Bytes frame = {0xFF,
                         0xC3,
                         0,
                         14,
                         14,
                         static_cast<std::uint8_t>(height >> 8),
                         static_cast<std::uint8_t>(height),
                         static_cast<std::uint8_t>(width / 2 >> 8),
                         static_cast<std::uint8_t>(width / 2),
                         2,
                         0,
                         0x11,
                         0,
                         1,
                         0x11,
                         0,
                         0xFF,
                         0xDA,
                         0,
                         10,
                         2,
                         0,
                         0,
                         1,
                         0,
                         1,
                         0,
                         0};
    out.bytes.insert(out.bytes.end(), frame.begin(), frame.end());
    Noise noise;
    for (std::uint64_t i = 0; i < std::uint64_t{width} * height; ++i) {
        constexpr std::uint32_t kCommon[] = {4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 3, 3, 7, 2, 1, 0};
        const std::uint32_t category = kCommon[noise.Next() & 15];
        std::uint32_t code = 0;
        std::uint32_t length = 2;
        for (std::size_t k = 0; kOrder[k] != category; ++k) {
            ++code;
            if (k >= 2) {
                code <<= 1;
                ++length;
            }
        }
        out.Put(code, length);
        // High and low halves take turns, so that the samples stay in their range.
        const std::uint32_t half = category == 0 ? 0 : 1u << (category - 1);
        const std::uint32_t raw = half == 0 ? 0 : noise.Next() & (half - 1);
        if (category != 0) out.Put(i / 2 % 2 == 0 ? half + raw : half - 1 - raw, category);
    }
    out.Put(0x7F, 7);
    out.bytes.push_back(0xFF);
    out.bytes.push_back(0xD9);
    return out.bytes;
}

std::uint64_t DataBytes(const Layout& layout, std::uint64_t width, std::uint64_t height) {
    if (layout.compression == 32769) return height * (width * 3 / 2 + (width + 2) / 10);
    if (std::string(layout.make) == "Panasonic") return width * height / 14 * 16;
    return width * height * layout.bits / 8;
}

Bytes NoisyData(const Layout& layout, std::uint32_t width, std::uint32_t height) {
    Bytes data(DataBytes(layout, width, height));
    Noise noise;
    for (std::uint8_t& byte : data) byte = static_cast<std::uint8_t>(noise.Next());
    return data;
}

fs::path WriteFile(const Layout& layout, std::uint32_t width, std::uint32_t height) {
    const Bytes data =
        layout.compression == 7 ? LosslessStream(width, height) : NoisyData(layout, width, height);
    Bytes file = {'I', 'I', 42, 0, 8, 0, 0, 0};
    constexpr std::uint32_t kDataStart = 256;
    const std::string make = layout.make;
    PutWord(file, 7);
    PutEntry(file, 256, 4, 1, width);
    PutEntry(file, 257, 4, 1, height);
    PutEntry(file, 258, 3, 1, layout.bits);
    PutEntry(file, 259, 3, 1, layout.compression);
    PutEntry(file, 271, 2, static_cast<std::uint32_t>(make.size() + 1), 200);
    PutEntry(file, 273, 4, 1, kDataStart);
    PutEntry(file, 279, 4, 1, static_cast<std::uint32_t>(data.size()));
    file.resize(kDataStart);
    std::copy(make.begin(), make.end(), file.begin() + 200);
    file.insert(file.end(), data.begin(), data.end());
    const fs::path path = fs::temp_directory_path() / "qmx_develop_bench.raw";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(file.data()),
               static_cast<std::streamsize>(file.size()));
    return path;
}

// The words' sum; stored where the compiler cannot know that nobody looks.
std::uint64_t SumFile(const wchar_t* path) {
    ParseContext ctx;
    const MappedFile mapped(ctx, path);
    if (!mapped) return 0;
    const std::uint8_t* p = ctx.viewBase;
    const auto words = static_cast<std::size_t>(ctx.fileSize) / sizeof(std::uint32_t);
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < words; ++i) {
        std::uint32_t word;
        std::memcpy(&word, p + i * sizeof word, sizeof word);
        sum += word;
    }
    return sum;
}

template <class Work>
double Seconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::nth_element(values.begin(),
                     values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

bool Measure(const Layout& layout, std::uint32_t megapixels) {
    // 4 by 3, both sides multiples of 56.
    std::uint32_t width = 56;
    while (std::uint64_t{width} * width * 3 / 4 < std::uint64_t{megapixels} * 1000000) width += 56;
    const std::uint32_t height = width * 3 / 4;
    const fs::path file = WriteFile(layout, width, height);
    std::vector<wchar_t> path;
    for (const char16_t unit : file.u16string()) path.push_back(static_cast<wchar_t>(unit));
    path.push_back(0);

    CopyStream stream(std::size_t{width} * height);
    std::vector<double> floor, half, eighth;
    volatile std::uint64_t sink = 0;
    bool sound = true;
    const auto develop = [&](std::uint32_t level) {
        RawDecodeState state;
        sound &= RunRawPipeline(state, path.data(), &stream, level) == 1;
    };
    for (int round = 0; round < kRounds; ++round) {
        floor.push_back(Seconds([&] { sink = sink + SumFile(path.data()); }));
        half.push_back(Seconds([&] { develop(1); }));
        eighth.push_back(Seconds([&] { develop(3); }));
    }
    std::error_code ignored;
    fs::remove(file, ignored);
    const double base = Median(floor);
    std::printf(
        "%-14s %3u MP  read %6.2f ms  1/2 %7.2f ms (%5.2f x)  1/8 %7.2f ms (%5.2f x)  "
        "%5.0f Msamples/s\n",
        layout.name, megapixels, base * 1e3, Median(half) * 1e3, Median(half) / base,
        Median(eighth) * 1e3, Median(eighth) / base,
        static_cast<double>(width) * height / Median(eighth) / 1e6);
    return sound;
}

int Run(int argc, char** argv) {
    std::vector<std::uint32_t> sizes;
    for (int i = 1; i < argc; ++i)
        sizes.push_back(static_cast<std::uint32_t>(std::strtoul(argv[i], nullptr, 10)));
    if (sizes.empty()) sizes = {10, 24};
    bool sound = true;
    for (const std::uint32_t megapixels : sizes) {
        if (megapixels < 1 || megapixels > 1000) return 2;
        for (const Layout& layout : kLayouts) sound &= Measure(layout, megapixels);
    }
    if (!sound) std::fprintf(stderr, "a file was refused\n");
    return sound ? 0 : 1;
}

}  // namespace
}  // namespace qmx::bench

int main(int argc, char** argv) { return qmx::bench::Run(argc, argv); }
