// Raw development of a file in memory.  QMX_FUZZ_LOADER names the loader that the input is sample
// data for; a file is built around it that chooses this loader.  kWhole: the input is the file.

#include "promises.h"
#include "rawdev/pipeline.h"
#include "support/memory_stream.h"
#include "support/raw_builder.h"

namespace qmx::fuzz {
namespace {

using test::Bytes;
using test::IfdBuilder;
using test::TiffBuilder;

enum class Kind {
    kWhole,
    kEightBit,
    kPacked12,
    kPacked32773,
    kPadded12,
    kEpson12,
    kWords,
    kDng,
    kDngJpeg,
    kJpeg,
    kPaired,
    kBlocks,
};
constexpr Kind kKind = Kind::QMX_FUZZ_LOADER;

// The stream is untouched, or holds one whole bitmap of the size that the dimensions make.
void Develop(const Bytes& file) {
    for (const std::uint32_t level : {0u, 1u, 3u}) {
        RawDecodeState state = test::StateOf(file);
        test::MemoryStream stream;
        const std::uint32_t written = DevelopView(state, &stream, level);
        Check(state.error == S_OK);
        Check(stream.writes == (written != 0 ? 3 : 0) && stream.position == 0);
        if (written == 0) continue;
        const bool transposed = (state.flip & 4) != 0;
        const std::size_t width = transposed ? state.outputHeight : state.outputWidth;
        const std::size_t height = transposed ? state.outputWidth : state.outputHeight;
        Check(stream.bytes.size() == 54 + (width * 3 + 3) / 4 * 4 * height);
    }
}

// Strips and tiles of DNG that share the data.
void DevelopTiles(test::RawForm& form, const Bytes& data) {
    constexpr std::uint32_t kDataAt = 1024;  // behind the directory
    if (data.size() < 4) return;
    const std::vector<std::uint32_t> offsets(1 + data[2] % 16, kDataAt);
    form.more = [&](TiffBuilder&, IfdBuilder& ifd) {
        ifd.Byte(50706, {1, data[3] & 1u, 0, 0});
        ifd.Long(322, {1u + data[0]}).Long(323, {1u + data[1]}).Long(324, offsets);
        ifd.Short(50712, {0, 3, 900}).Short(50713, {2, 2}).Short(50714, {1, 9, 30, 4});
        ifd.Rational(50718, {{1 + (data[3] >> 1 & 1u), 1}, {1 + (data[3] >> 2 & 1u), 1}});
        ifd.Short(50829, {0, form.width / 2, form.height, form.width});
    };
    Bytes file = test::BuildRaw(form, {});
    Check(file.size() <= kDataAt);
    file.resize(kDataAt);
    file.insert(file.end(), data.begin() + 4, data.end());
    Develop(file);
}

// The input's first bytes make the form of the file, the rest is its sample data.
void DevelopSamples(const std::uint8_t* input, std::size_t size) {
    if (size < 4) return;
    test::RawForm form;
    form.width = 1 + input[0];
    form.height = 22 + input[1] % 64;
    form.bits = 8 + input[2] % 9;
    form.samplesPerPixel = (input[3] & 1) != 0 ? 3 : 1;
    form.order = (input[3] & 2) != 0 ? test::Order::kBig : test::Order::kLittle;
    Bytes data(input + 4, input + size);
    switch (kKind) {
        case Kind::kEightBit: form.bits = 8; break;
        case Kind::kPacked12: form.bits = 12; break;
        case Kind::kPacked32773: form.compression = 32773; break;
        case Kind::kEpson12: form.compression = 32769; break;
        case Kind::kWords: form.bits = 14 + form.bits % 2 * 2; break;
        case Kind::kDng: return DevelopTiles(form, data);
        case Kind::kDngJpeg: form.compression = 7; return DevelopTiles(form, data);
        case Kind::kJpeg: form.compression = 7; break;
        case Kind::kPaired:
            form.compression = 7;
            form.make = "Hasselblad";
            break;
        case Kind::kPadded12:  // the length of the data tells it from what is packed alone
            form.bits = 12;
            form.width = form.width / 10 * 10 + 10;
            data.resize(std::size_t{form.width} * form.height * 8 / 5);
            break;
        case Kind::kBlocks:
            form.make = "Panasonic";
            form.bits = 0;
            form.samplesPerPixel = 1;
            form.width = form.width / 14 * 14 + 14;
            if ((input[3] & 4) != 0)
                form.more = [](TiffBuilder&, IfdBuilder& ifd) {
                    ifd.Short(45, {4}).Long(280, {0});  // split
                };
            data.resize(std::size_t{form.width} * form.height / 14 * 16);
            break;
        case Kind::kWhole: break;
    }
    Develop(test::BuildRaw(form, data));
}

}  // namespace
}  // namespace qmx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qmx::fuzz;
    if (kKind == Kind::kWhole) {
        Develop({data, data + size});
    } else {
        DevelopSamples(data, size);
    }
    return 0;
}
