#include "bounds/worst_files.h"

#include <string_view>

#include "support/ciff_builder.h"
#include "support/raw_builder.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

constexpr std::uint16_t kAscii = 2;
constexpr std::uint16_t kShort = 3;
constexpr std::uint16_t kLong = 4;
constexpr std::uint16_t kUndefined = 7;
constexpr std::size_t kEntryBytes = 12;
constexpr std::uint32_t kMostInIfd = 512;  // a directory of more is not walked

std::uint32_t U32(std::size_t value) { return static_cast<std::uint32_t>(value); }

Bytes Repeat(const Bytes& part, std::size_t size) {
    Bytes bytes;
    bytes.reserve(size + part.size());
    while (bytes.size() < size) bytes.insert(bytes.end(), part.begin(), part.end());
    return bytes;
}

// A little-endian TIFF file put together by position.
class Tiff {
public:
    Tiff() { writer_.Raw(FromText("II")).U16(42).U32(8); }
    std::uint32_t Here() const { return U32(writer_.bytes.size()); }
    Tiff& Count(std::size_t entries) {
        writer_.U16(U32(entries));
        return *this;
    }
    Tiff& Entry(std::uint32_t tag, std::uint16_t type, std::size_t count, std::size_t value) {
        writer_.U16(tag).U16(type).U32(U32(count)).U32(U32(value));
        return *this;
    }
    Tiff& Long(std::size_t value) {
        writer_.U32(U32(value));
        return *this;
    }
    Tiff& Raw(const Bytes& bytes) {
        writer_.Raw(bytes);
        return *this;
    }
    // A directory of the make and entries that `fill` writes, `count` in all.
    template <class Fill>
    Tiff& Ifd(std::string_view make, std::size_t count, Fill&& fill) {
        Count(count + 1);
        const std::uint32_t text = Here() + U32(kEntryBytes * (count + 1)) + 4;
        Entry(0x010F, kAscii, make.size(), text);
        fill(*this);
        return Long(0).Raw(FromText(make));
    }
    Bytes Padded(std::size_t size) {
        if (writer_.bytes.size() < size) writer_.bytes.resize(size);
        return std::move(writer_.bytes);
    }

private:
    ByteWriter writer_{Order::kLittle};
};

// An array of offsets of one directory, as long as the rest of the file, in the first directory.
template <class Shared>
Bytes SubDirectories(std::string_view make, std::size_t size, Shared&& shared) {
    Tiff tiff;
    const std::size_t offsets = (size - size / 8) / 4;
    const std::uint32_t array = 8 + 2 + 2 * kEntryBytes + 4 + U32(make.size());
    tiff.Ifd(make, 1, [&](Tiff& t) { t.Entry(0x014A, kLong, offsets, array); });
    const std::uint32_t directory = array + U32(offsets) * 4;
    for (std::size_t i = 0; i < offsets; ++i) tiff.Long(directory);
    shared(tiff);
    return tiff.Padded(size);
}

// One directory of equal entries whose value is at the file's end, entered as often as fits.
Bytes EqualEntries(std::string_view make, std::size_t size, std::uint32_t tag, std::uint16_t type,
                   std::size_t count, const Bytes& value) {
    return SubDirectories(make, size, [&](Tiff& tiff) {
        const std::uint32_t at = tiff.Here() + 2 + U32(kMostInIfd * kEntryBytes) + 4;
        tiff.Count(kMostInIfd);
        for (std::uint32_t i = 0; i < kMostInIfd; ++i) tiff.Entry(tag, type, count, at);
        tiff.Long(0).Raw(value);
    });
}

// An Exif directory with as many notes as fit in the file, all of them the same one.
Bytes EqualNotes(std::string_view make, std::size_t size, const Bytes& header, std::uint32_t first,
                 std::uint32_t tags, std::uint16_t type, std::uint32_t count, const Bytes& values) {
    const std::size_t notes = std::min<std::size_t>(size / 2 / kEntryBytes, 60000);
    Tiff tiff;
    std::uint32_t exif = 0;
    tiff.Ifd(make, 2, [&](Tiff& t) {
        exif = U32(t.Here() + 2 * kEntryBytes + 4 + make.size());
        t.Entry(0x0110, kAscii, 4, 0x3F3F3F3F);
        t.Entry(0x8769, kLong, 1, exif);
    });
    tiff.Count(notes);
    const std::uint32_t note = exif + 2 + U32(notes * kEntryBytes);
    for (std::size_t i = 0; i < notes; ++i) tiff.Entry(0x927C, kUndefined, size, note);
    tiff.Raw(header).Count(tags);
    const std::uint32_t data = tiff.Here() + tags * U32(kEntryBytes);
    for (std::uint32_t i = 0; i < tags; ++i) tiff.Entry(first + i, type, count, data);
    return tiff.Raw(values).Padded(size);
}

Bytes JpegFile(const Bytes& part, std::size_t size) {
    return FromText("\xFF\xD8"sv) + Repeat(part, size);
}

// Thumbnail resources that share one long stream of small segments.
Bytes Photoshop(std::size_t size, std::uint32_t id) {
    const Bytes block = ByteWriter(Order::kBig).Raw(FromText("8BIM")).U16(id).U16(0).U32(0).bytes;
    const Bytes blocks = Repeat(block, size / 2);
    return EqualEntries("Canon"sv, size / 2, 0x8649, kUndefined, blocks.size(), blocks);
}

// Heaps in a heap, all of them the same and each with all records.
Bytes EqualHeaps(std::size_t size, std::uint32_t id, const Bytes& data) {
    const std::size_t entries = std::min<std::size_t>(size / 10 / 2, 60000);
    ByteWriter heap(Order::kLittle);
    heap.Raw(data);
    const std::uint32_t directory = U32(heap.bytes.size());
    heap.U16(U32(entries));
    for (std::size_t i = 0; i < entries; ++i) heap.U16(id).U32(U32(data.size())).U32(0);
    heap.U32(directory);
    return CiffFile(NamedHeap().Data(0x300A, heap.bytes));
}

// Each block's data is a TIFF structure that leads to the same directory.
Bytes EqualBlocks(std::size_t size) {
    const std::size_t blocks = size / 2 / 16;
    ByteWriter file(Order::kBig);
    file.U8(0).Raw(FromText("MRM")).U32(U32(size));
    const std::size_t directory = 8 + blocks * 16;
    for (std::size_t i = 0; i < blocks; ++i) {
        file.U32(0x00545457).U32(8).Raw(FromText("MM")).U16(42);
        file.U32(U32(directory - (8 + i * 16 + 8)));
    }
    file.U16(500);
    for (std::uint32_t i = 0; i < 500; ++i) file.U16(0x0110).U16(kAscii).U32(60).U32(0);
    return file.Pad(size).bytes;
}

Bytes EqualProperties(std::size_t size) {
    // Property lists with the longest texts, which all pairs share, entered from the whole
    // directory.
    const std::size_t pairs = size / 4 / 8;
    ByteWriter list(Order::kLittle);
    list.Raw(FromText("SECp")).U32(0x20000).U32(U32(pairs)).U32(0).U32(0).U32(0);
    for (std::size_t i = 0; i < pairs; ++i) list.U32(0).U32(9);
    for (const char c : "LENSMODEL"sv) list.U16(static_cast<std::uint8_t>(c));
    list.Raw(Bytes(4096, 'x'));
    X3fBuilder builder;
    builder.Section("PROP", list.bytes);
    Bytes file = builder.Build();
    // A directory of our own, as long as the rest.
    const std::size_t entries = (size - file.size()) / kEntryBytes;
    ByteWriter directory(Order::kLittle);
    const std::uint32_t at = U32(file.size());
    directory.Raw(FromText("SECd")).U32(0x20000).U32(U32(entries));
    for (std::size_t i = 0; i < entries; ++i)
        directory.U32(40).U32(U32(list.bytes.size())).Raw(FromText("PROP"));
    return std::move(file) + directory.U32(at).bytes;
}

// Rows of the longest codes that share their bytes.
Bytes EqualRows(std::size_t size) {
    constexpr std::uint32_t kBits = 26;
    constexpr std::uint32_t kColumns = 1000;
    // Nearly as many samples as the section has bits.
    const std::uint32_t rows = U32((size - 1024) * 8 / 3 / kColumns);
    ByteWriter data(Order::kLittle);
    for (std::uint32_t d = 0; d < 256; ++d) data.U32(d == 0 ? kBits << 27 | 0x2AAAAAA : 0);
    data.Raw(Bytes(size, 0xAA));
    for (std::uint32_t y = 0; y < rows; ++y) data.U32(0);
    X3fBuilder file;
    return file.Section("PROP", PropertyList({{"CAMMANUF", "SIGMA"}}))
        .Section("IMAG", ImageSection({2, 11, kColumns, rows, 0, data.bytes}))
        .Build();
}

Bytes Picture(std::string_view make, std::size_t size, std::uint32_t photometric) {
    const std::uint32_t width = 1000;
    const std::uint32_t height = U32(size / (photometric == 6 ? 2 : 3) / width);
    Tiff tiff;
    tiff.Ifd(make, 9, [&](Tiff& t) {
        t.Entry(0x0100, kLong, 1, width).Entry(0x0101, kLong, 1, height);
        t.Entry(0x0102, kShort, 1, 8).Entry(0x0103, kShort, 1, 1);
        t.Entry(0x0106, kShort, 1, photometric).Entry(0x0110, kAscii, 2, 'x');
        t.Entry(0x0111, kLong, 1, 200).Entry(0x0117, kLong, 1, size);
        t.Entry(0x011C, kShort, 1, 1);
    });
    return tiff.Padded(size + 200);
}

using Build = std::function<Bytes(std::size_t size)>;

void AddNotes(std::vector<WorstFile>& files) {
    const struct {
        std::string_view make;
        std::string_view header;
        std::vector<std::uint32_t> ranges;  // first tags, 128 from each
    } makers[] = {
        {"Canon", "", {0, 0x80, 0x4000}},
        {"NIKON", "Nikon\0\2\0\0\0II*\0\10\0\0\0"sv, {0, 0x80, 0xE00}},
        {"Minolta", "", {0, 0x80, 0x100}},
        {"OLYMPUS", "OLYMP\0\1\0"sv, {0, 0x200, 0x1000, 0x2000, 0x2010}},
        {"SONY", "SONY DSC \0\0\0"sv, {0, 0x80, 0x2000, 0x9000, 0x9400, 0xB000}},
        {"FUJIFILM", "FUJIFILM\14\0\0\0"sv, {0, 0x1000, 0x1400}},
        {"CASIO", "QVC\0\0\0"sv, {0, 0x2000, 0x3000}},
        {"RICOH", "Ricoh\0\0\0"sv, {0, 0x1000, 0x2000}},
        {"Panasonic", "Panasonic\0\0\0"sv, {0, 0x80, 0x8000}},
        {"SANYO", "SANYO\0\1\0"sv, {0, 0x200}},
        {"PENTAX", "AOC\0II"sv, {0, 0x80, 0x200}},
        {"SIGMA", "SIGMA\0\0\0\1\0"sv, {0, 0x80}},
        {"SEIKO", "EPSON\0\1\0"sv, {0, 0x200}},
        {"Mamiya", "", {0, 0x100}},
        {"LEICA", "LEICA\0\0\0"sv, {0, 0x300}},
    };
    for (const auto& [make, header, ranges] : makers)
        for (const std::uint32_t first : ranges) {
            const Build build = [=, make = make, header = header](std::size_t size) {
                return EqualNotes(make, size, FromText(header), first, 128, kUndefined,
                                  U32(size / 4), Bytes(size / 4, 1));
            };
            files.push_back(
                {"notes of " + std::string(make) + " from tag " + std::to_string(first), build});
        }
}

// Previews that share one stream of many segments.
Bytes EqualPreviews(std::size_t size) {
    Tiff tiff;
    const std::uint32_t at = 8 + 2 + 511 * U32(kEntryBytes) + 4 + 1;
    tiff.Ifd("x", 510, [&](Tiff& t) {
        for (int i = 0; i < 510; ++i) t.Entry(0x0201, kLong, 1, at);
    });
    return tiff.Raw(JpegFile(FromText("\xFF\xE0\0\2"sv), size / 2)).Padded(size);
}

// Each names the next 512 times.
Bytes DirectoriesOfDirectories(std::size_t size) {
    Tiff tiff;
    tiff.Ifd("x", 511, [&](Tiff& t) {
        for (int i = 0; i < 511; ++i) t.Entry(0x014A, kLong, 1, 8);
    });
    return tiff.Padded(size);
}

// From some place on a directory begins at every sixth byte.
Bytes ShortSteps(std::size_t size) {
    Tiff tiff;
    tiff.Ifd("x", 0, [](Tiff&) {});
    Bytes file = tiff.Padded(34);
    file[8 + 2 + 12] = 34;
    ByteWriter chain(Order::kLittle);
    while (chain.bytes.size() + 40 < size) chain.U16(0).U32(U32(chain.bytes.size()) + 34 + 4);
    return std::move(file) + chain.bytes;
}

// The notes end at a stream that has no end of its own.
Bytes EndlessStream(std::size_t size, std::string_view part) {
    const Bytes stream = FromText("\xFF\xD8\xFF\xDA\0\2"sv) + Repeat(FromText(part), size / 2);
    return EqualNotes("SIGMA", size, FromText("SIGMA\0\0\0\1\0"sv), 0xFFF0, 1, kUndefined, 8,
                      stream);
}

void AddDirectories(std::vector<WorstFile>& files) {
    const Bytes text =
        FromText("Model that no rule knows, of the longest text that is kept at all.");
    const auto add = [&](std::string name, Build build) {
        files.push_back({std::move(name), std::move(build)});
    };
    // clang-format off
    for (const std::string_view make : {"Canon"sv, "NIKON"sv, "Minolta"sv, "OLYMPUS"sv, "SONY"sv,
                                        "PENTAX"sv, "Panasonic"sv, "LEICA"sv, "RICOH"sv})
        add("models of " + std::string(make), [=](std::size_t size) {
            return EqualEntries(make, size, 0x0110, kAscii, 63, text); });
    add("makes", [=](std::size_t size) {
        return EqualEntries("x", size, 0x010F, kAscii, 63, text); });
    add("strip lengths", [](std::size_t size) {
        return EqualEntries("x", size, 0x0117, 5, size, Bytes(size / 8, 1)); });
    add("empty sub-directories", [](std::size_t size) {
        return SubDirectories("x", size, [](Tiff& t) { t.Count(0); }); });
    add("sub-directories of previews", [](std::size_t size) {
        return SubDirectories("x", size, [](Tiff& t) {
            t.Count(2).Entry(0x0201, kLong, 1, 8).Entry(0x0202, kLong, 1, 8); }); });
    add("previews of many segments", EqualPreviews);
    add("directories of directories", DirectoriesOfDirectories);
    add("chain of short steps", ShortSteps);
    add("Exif directories", [](std::size_t size) {
        return EqualEntries("x", size, 0x8769, kLong, 1, Bytes(64, 0)); });
    add("empty resources", [](std::size_t size) { return Photoshop(size, 1000); });
    add("empty thumbnails", [](std::size_t size) { return Photoshop(size, 1036); });
    add("markers", [](std::size_t size) { return JpegFile(FromText("\xFF\xE0\0\2"sv), size); });
    add("fill bytes", [](std::size_t size) { return JpegFile(FromText("\xFF"), size); });
    for (const std::string_view part :
         {"\xFF\0"sv, "\xFF"sv, "\xFF\xD0"sv, "\0"sv, "\xFF\xDA\0\2"sv})
        add("streams of Sigma's notes, of " + std::to_string(part.size()) + " x " +
            std::to_string(static_cast<std::uint8_t>(part.back())),
            [=](std::size_t size) { return EndlessStream(size, part); });
    add("heaps", [](std::size_t size) { return EqualHeaps(size, 0x300B, Bytes(64)); });
    for (const std::uint32_t id :
         {0x080Au, 0x0810u, 0x1029u, 0x102Au, 0x102Du, 0x1038u, 0x1093u, 0x180Eu, 0x2007u})
        add("records of type " + std::to_string(id), [id](std::size_t size) {
            return EqualHeaps(size, id, Bytes(size / 2, 'x')); });
    add("blocks", EqualBlocks);
    add("properties", EqualProperties);
    add("coded rows", EqualRows);
    add("RGB", [](std::size_t size) { return Picture("x", size, 2); });
    add("YCbCr", [](std::size_t size) { return Picture("x", size, 6); });
    add("Mamiya", [](std::size_t size) { return Picture("Mamiya", size, 2); });
    // clang-format on
}

// A raw with the entries that `last` writes, `lastCount` of them.
Bytes RawOf(std::size_t size, std::size_t lastCount,
            const std::function<void(Tiff&, std::uint32_t end)>& last, std::uint32_t compression,
            const Bytes& data, std::uint32_t samplesPerByte = 1) {
    Tiff tiff;
    const std::size_t entries = 7 + lastCount;
    const std::uint32_t end = 8 + 2 + U32(kEntryBytes * (entries + 1)) + 4 + 1;
    constexpr std::uint32_t kWidth = 1024;
    const std::uint32_t height = std::min(U32(size * samplesPerByte / kWidth), 60000u);
    tiff.Ifd("x", entries, [&](Tiff& t) {
        t.Entry(256, kLong, 1, kWidth).Entry(257, kLong, 1, height);
        t.Entry(258, kShort, 1, 12).Entry(259, kShort, 1, compression);
        t.Entry(277, kShort, 1, 1).Entry(273, kLong, 1, end).Entry(279, kLong, 1, size);
        last(t, end);
    });
    return tiff.Raw(data).Padded(size);
}

// As many equal entries as fit, each of `count` items that stand behind all of them.
Bytes RawOfEqual(std::size_t size, std::uint32_t tag, std::uint16_t type, std::size_t count,
                 const Bytes& data) {
    const std::size_t entries = std::min<std::size_t>(size / 2 / kEntryBytes, 60000);
    const auto last = [&](Tiff& t, std::uint32_t end) {
        for (std::size_t i = 0; i < entries; ++i) t.Entry(tag, type, count, count == 1 ? 8 : end);
    };
    return RawOf(size, entries, last, 1, data);
}

Bytes RawOfTiles(std::size_t size, std::uint32_t side, std::uint32_t compression) {
    const Bytes stream = FromText("\xFF\xD8"sv) + Repeat(FromText("\xFF"sv), size / 4) +
                         WriteLosslessJpeg(SmoothSamples(16, 16, 12), {});
    const auto last = [&](Tiff& t, std::uint32_t end) {
        t.Entry(322, kLong, 1, side).Entry(323, kLong, 1, side);
        t.Entry(324, kLong, size / 8, end + size / 2).Entry(50706, 1, 4, 0x00000401);
    };
    const Bytes offsets = Repeat(ByteWriter(Order::kLittle).U32(200).bytes, size / 2);
    return RawOf(size, 4, last, compression, stream + Bytes(size / 2 - stream.size()) + offsets);
}

Bytes RawOfLevels(std::size_t size) {
    const auto last = [&](Tiff& t, std::uint32_t end) {
        t.Entry(50706, 1, 4, 0x00000401).Entry(50712, kShort, size, end);
        t.Entry(50713, kShort, 2, 64 | 1 << 16).Entry(50714, 10, 64, end);
        t.Entry(50715, 10, size, end).Entry(50716, 10, size, end);
    };
    return RawOf(size, 6, last, 1, {});
}

// One bit per sample and less: the code of difference 0, then nothing.
Bytes LosslessRaw(std::size_t size, std::uint32_t precision) {
    const Samples zeros = {1024, 32, std::vector<std::uint16_t>(1024 * 32)};
    const Bytes stream = WriteLosslessJpeg(zeros, {.precision = precision});
    return RawOf(
        size, 0, [](Tiff&, std::uint32_t) {}, 7, stream, 32);
}

Bytes PairedRaw(std::size_t size) {
    const std::uint32_t height = U32(size / 1024);
    RawForm form;
    form.width = 1024;
    form.height = height;
    form.bits = 12;
    form.compression = 7;
    form.make = "Hasselblad";
    return BuildRaw(form, WritePairedJpeg(NoiseSamples(1024, height / 2, 12), 12));
}

void AddRaws(std::vector<WorstFile>& files) {
    const auto add = [&](std::string name, Build build) {
        files.push_back({"raw, " + std::move(name), std::move(build), true});
    };
    // clang-format off
    add("balance texts", [](std::size_t size) {
        const Bytes texts = Repeat(FromText("Neutral 1 2 3\n"), size / 4);
        return RawOfEqual(size, 50454, kAscii, size, texts); });
    add("texts", [](std::size_t size) {
        return RawOfEqual(size, 305, kAscii, size, Bytes(size / 4, 'x')); });
    add("Exif directories", [](std::size_t size) {
        return RawOfEqual(size, 34665, kLong, 1, {}); });
    for (const std::uint32_t compression : {1u, 7u})
        for (const std::uint32_t side : {1u, 16u})
            add("tiles of " + std::to_string(side) + ", compression " + std::to_string(compression),
                [=](std::size_t size) { return RawOfTiles(size, side, compression); });
    add("levels", RawOfLevels);
    for (const std::uint32_t precision : {12u, 16u})
        add("lossless, " + std::to_string(precision) + " bits",
            [=](std::size_t size) { return LosslessRaw(size, precision); });
    add("packed", [](std::size_t size) {
        return RawOf(size, 0, [](Tiff&, std::uint32_t) {}, 32773, Bytes(size, 7)); });
    add("paired", PairedRaw);
    // clang-format on
}

}  // namespace

std::vector<WorstFile> WorstFiles() {
    std::vector<WorstFile> files;
    AddDirectories(files);
    AddNotes(files);
    AddRaws(files);
    return files;
}

}  // namespace qmx::test
