// Measures the development of raw files against the least that any reader of their samples must do:
// a plain sequential read and sum of the same bytes, file mapping included.  README.md tells how to
// read the figures.
//
//     develop_bench [MEGAPIXELS|LAYOUT]...

#include "copy_stream.h"
#include "memory.h"
#include "platform.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "parse/core/mapped_file.h"
#include "rawdev/pipeline.h"

namespace qmx::bench {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

constexpr int kRounds = 15;

// How the samples are cut: rows one after the other, a DNG's strips or its tiles.
enum class Cut { kNone, kStrips, kTiles };

// Of some cameras the colours are known, which are converted then.
struct Camera {
    std::string make;
    std::string model;
};
const Camera kUnknown = {"ACME", "One"};
const Camera kEpson = {"SEIKO EPSON CORP.", "R-D1"};
const Camera kPanasonic = {"Panasonic", "One"};

struct Layout {
    const char* name;
    std::uint32_t compression;
    std::uint32_t bits;
    Cut cut = Cut::kNone;
    const Camera* camera = &kUnknown;
    bool bigEndian = false;
};
constexpr Layout kLayouts[] = {
    {"8-bit", 1, 8},
    {"packed-12", 1, 12},
    {"packed-12-color", 1, 12, Cut::kNone, &kEpson},
    {"padded-12", 32769, 12},
    {"words-16", 1, 16},
    {"words-16-be", 1, 16, Cut::kNone, &kUnknown, true},
    {"blocks", 1, 12, Cut::kNone, &kPanasonic},
    {"dng-10-strips", 1, 10, Cut::kStrips},
    {"dng-12-strips", 1, 12, Cut::kStrips},
    {"dng-14-strips", 1, 14, Cut::kStrips},
    {"dng-10-tiles", 1, 10, Cut::kTiles},
    {"dng-12-tiles", 1, 12, Cut::kTiles},
    {"dng-14-tiles", 1, 14, Cut::kTiles},
    {"lossless-jpeg", 7, 14},
    {"dng-jpeg-tiles", 7, 14, Cut::kTiles},
};
constexpr std::uint32_t kTileSide = 256;  // rows of a strip too

// One directory, in either byte order, and the data behind it.
class FileWriter {
public:
    explicit FileWriter(bool bigEndian) : bigEndian_(bigEndian) {
        const std::uint8_t mark = bigEndian ? 'M' : 'I';
        bytes_ = {mark, mark};
        Put16(42);
        Put32(8);
        Put16(0);  // entries, known at the end
    }
    void Put16(std::uint32_t value) {
        for (const int shift : {bigEndian_ ? 8 : 0, bigEndian_ ? 0 : 8})
            bytes_.push_back(static_cast<std::uint8_t>(value >> shift));
    }
    void Put32(std::uint32_t value) {
        Put16(bigEndian_ ? value >> 16 : value);
        Put16(bigEndian_ ? value : value >> 16);
    }
    // One number, or the position of several.
    void Entry(std::uint32_t tag, std::uint32_t type, std::uint32_t count, std::uint32_t value) {
        constexpr std::uint32_t kWord = 3;
        ++entries_;
        Put16(tag);
        Put16(type);
        Put32(count);
        if (type == kWord && count == 1) {
            Put16(value);
            Put16(0);
        } else {
            Put32(value);
        }
    }
    // The value of an entry that is its own bytes.
    void EntryOfBytes(std::uint32_t tag, const Bytes& four) {
        Entry(tag, 1, 4, 0);
        std::copy(four.begin(), four.end(), bytes_.end() - 4);
    }
    void PadTo(std::size_t position) { bytes_.resize(position); }
    void Append(const Bytes& more) { bytes_.insert(bytes_.end(), more.begin(), more.end()); }
    Bytes Finish() {
        bytes_[bigEndian_ ? 9 : 8] = static_cast<std::uint8_t>(entries_);
        return std::move(bytes_);
    }

private:
    bool bigEndian_;
    std::uint32_t entries_ = 0;
    Bytes bytes_;
};

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
    if (layout.camera == &kPanasonic) return width * height / 14 * 16;
    return width * height * layout.bits / 8;
}

Bytes MakeData(const Layout& layout, std::uint32_t width, std::uint32_t height) {
    if (layout.compression == 7) return LosslessStream(width, height);
    Bytes data(DataBytes(layout, width, height));
    Noise noise;
    for (std::uint8_t& byte : data) byte = static_cast<std::uint8_t>(noise.Next());
    return data;
}

// Where the samples stand in the file.
struct RawFile {
    fs::path path;
    std::size_t dataStart;
    std::size_t dataBytes;
};

RawFile WriteFile(const Layout& layout, std::uint32_t width, std::uint32_t height) {
    constexpr std::uint32_t kMakeAt = 400;
    constexpr std::uint32_t kModelAt = 450;
    constexpr std::uint32_t kTablesAt = 512;
    const bool isDng = layout.cut != Cut::kNone;
    const std::uint32_t tileWidth = layout.cut == Cut::kTiles ? kTileSide : width;
    const std::uint32_t tileHeight = isDng ? kTileSide : height;
    const std::uint32_t tiles = ((width - 1) / tileWidth + 1) * ((height - 1) / tileHeight + 1);
    const Bytes tile = MakeData(layout, tileWidth, tileHeight);
    const auto tileBytes = static_cast<std::uint32_t>(tile.size());
    const std::uint32_t dataStart = kTablesAt + 8 * tiles;
    const bool isTiled = layout.cut == Cut::kTiles;
    const auto text = [](const std::string& s) { return Bytes(s.begin(), s.end()); };
    const Bytes make = text(layout.camera->make);
    const Bytes model = text(layout.camera->model);

    FileWriter file(layout.bigEndian);
    file.Entry(256, 4, 1, width);
    file.Entry(257, 4, 1, height);
    file.Entry(258, 3, 1, layout.bits);
    file.Entry(259, 3, 1, layout.compression);
    if (isDng) file.Entry(262, 3, 1, 32803);
    file.Entry(271, 2, static_cast<std::uint32_t>(make.size() + 1), kMakeAt);
    file.Entry(272, 2, static_cast<std::uint32_t>(model.size() + 1), kModelAt);
    if (!isTiled) file.Entry(273, 4, tiles, tiles == 1 ? dataStart : kTablesAt);
    if (!isTiled) file.Entry(278, 4, 1, tileHeight);
    if (!isTiled) file.Entry(279, 4, tiles, tiles == 1 ? tileBytes : kTablesAt + 4 * tiles);
    if (isTiled) file.Entry(322, 4, 1, tileWidth);
    if (isTiled) file.Entry(323, 4, 1, tileHeight);
    if (isTiled) file.Entry(324, 4, tiles, kTablesAt);
    if (isTiled) file.Entry(325, 4, tiles, kTablesAt + 4 * tiles);
    if (isDng) file.EntryOfBytes(50706, {1, 4, 0, 0});
    // Converted noise is not to clip: white that is known early would shorten the work.
    if (layout.camera == &kEpson) file.Entry(50717, 4, 1, 4u << layout.bits);
    file.PadTo(kMakeAt);
    file.Append(make);
    file.PadTo(kModelAt);
    file.Append(model);
    file.PadTo(kTablesAt);
    for (std::uint32_t i = 0; i < tiles; ++i) file.Put32(dataStart + tileBytes * i);
    for (std::uint32_t i = 0; i < tiles; ++i) file.Put32(tileBytes);
    for (std::uint32_t i = 0; i < tiles; ++i) file.Append(tile);
    const Bytes bytes = file.Finish();
    const fs::path path = fs::temp_directory_path() / "qmx_develop_bench.raw";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return {path, dataStart, std::size_t{tileBytes} * tiles};
}

// The sum of the samples' bytes, `Number` by `Number`, the mapping included.
template <class Number>
std::uint32_t SumFile(const wchar_t* path, const RawFile& file) {
    ParseContext ctx;
    const MappedFile mapped(ctx, path);
    if (!mapped) return 0;
    const std::uint8_t* p = ctx.viewBase + file.dataStart;
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < file.dataBytes / sizeof(Number); ++i) {
        Number number;
        std::memcpy(&number, p + i * sizeof number, sizeof number);
        sum += number;
    }
    return sum;
}

// Milliseconds of the processor, which other programs do not lengthen; on Windows those of the
// clock.
template <class Work>
double Time(Work&& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC;
}

// The least of all rounds: what disturbs a round only makes it longer.
class Least {
public:
    void Take(double value) { least_ = std::min(least_, value); }
    double Get() const { return least_; }

private:
    double least_ = 1e9;
};

// The memory in use when the picture is written: all that a development takes is there then.
class WatchingStream final : public CopyStream {
public:
    using CopyStream::CopyStream;
    HRESULT STDMETHODCALLTYPE Write(const void* source, ULONG length, ULONG* written) override {
        memory = std::max(memory, PrivateMemory());
        return CopyStream::Write(source, length, written);
    }
    std::uint64_t memory = 0;
};

double DevelopedMegabytes(const wchar_t* path, std::uint32_t level, std::size_t room) {
    WatchingStream stream(room);
    ReleaseFreeMemory();
    const std::uint64_t before = PrivateMemory();
    RawDecodeState state;
    RunRawPipeline(state, path, &stream, level);
    return static_cast<double>(stream.memory - std::min(before, stream.memory)) / 1e6;
}

bool Measure(const Layout& layout, std::uint32_t megapixels) {
    // 4 by 3, both sides multiples of 56.
    std::uint32_t width = 56;
    while (std::uint64_t{width} * width * 3 / 4 < std::uint64_t{megapixels} * 1000000) width += 56;
    const std::uint32_t height = width * 3 / 4;
    const RawFile file = WriteFile(layout, width, height);
    const WideText path = ToWide(file.path);

    const std::size_t room = std::size_t{width} * height;
    CopyStream stream(room);
    Least words, bytes, half, eighth;
    volatile std::uint32_t sink = 0;
    bool sound = true;
    const auto develop = [&](std::uint32_t level) {
        RawDecodeState state;
        sound &= RunRawPipeline(state, path.data(), &stream, level) == 1;
    };
    for (int round = 0; round < kRounds; ++round) {
        words.Take(Time([&] { sink = sink + SumFile<std::uint32_t>(path.data(), file); }));
        bytes.Take(Time([&] { sink = sink + SumFile<std::uint8_t>(path.data(), file); }));
        half.Take(Time([&] { develop(1); }));
        eighth.Take(Time([&] { develop(3); }));
    }
    const double halfMegabytes = DevelopedMegabytes(path.data(), 1, room);
    const double eighthMegabytes = DevelopedMegabytes(path.data(), 3, room);
    std::error_code ignored;
    fs::remove(file.path, ignored);
    const auto print = [&](const char* scale, double time, double megabytes) {
        std::printf("  %s %7.2f ms %5.2f %5.2f %5.0f MB", scale, time, time / words.Get(),
                    time / bytes.Get(), megabytes);
    };
    std::printf("%-15s %3u MP  read %5.2f %5.2f ms", layout.name, megapixels, words.Get(),
                bytes.Get());
    print("1/8", eighth.Get(), eighthMegabytes);
    print("1/2", half.Get(), halfMegabytes);
    std::printf("  %5.0f Msamples/s\n", static_cast<double>(width) * height / eighth.Get() / 1e3);
    return sound;
}

int Run(int argc, char** argv) {
    std::vector<std::uint32_t> sizes;
    std::vector<Layout> layouts;
    for (int i = 1; i < argc; ++i) {
        const auto* named =
            std::find_if(std::begin(kLayouts), std::end(kLayouts),
                         [&](const Layout& l) { return std::string_view(l.name) == argv[i]; });
        const auto megapixels = static_cast<std::uint32_t>(std::strtoul(argv[i], nullptr, 10));
        if (named != std::end(kLayouts)) {
            layouts.push_back(*named);
        } else if (megapixels >= 1 && megapixels <= 1000) {
            sizes.push_back(megapixels);
        } else {
            return 2;
        }
    }
    if (sizes.empty()) sizes = {10, 24};
    if (layouts.empty()) layouts.assign(std::begin(kLayouts), std::end(kLayouts));
    bool sound = true;
    for (const std::uint32_t megapixels : sizes)
        for (const Layout& layout : layouts) sound &= Measure(layout, megapixels);
    if (!sound) std::fprintf(stderr, "a file was refused\n");
    return sound ? 0 : 1;
}

}  // namespace
}  // namespace qmx::bench

int main(int argc, char** argv) { return qmx::bench::Run(argc, argv); }
