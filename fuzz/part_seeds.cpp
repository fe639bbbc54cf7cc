#include "support/raw_builder.h"
#include "support/x3f_builder.h"
#include "target_seeds.h"

namespace qmx::fuzz {
namespace {

using namespace test;

constexpr std::uint32_t kWidth = 60;
constexpr std::uint32_t kHeight = 28;

// What makes the form of the file, see rawdev_fuzz.cpp.
Bytes FormHead(std::uint32_t bits, std::uint32_t width = kWidth, std::uint32_t height = kHeight) {
    return ByteWriter(Order::kLittle).U8(width - 1).U8(height - 22).U8(bits - 8).U8(0).bytes;
}

void AddRawSeeds(TargetSeeds& seeds) {
    const auto add = [&](const std::string& loader, const std::string& name, const Bytes& input) {
        seeds.push_back({"rawdev_" + loader + "_fuzz", {name, input}});
    };
    const Samples twelve = SmoothSamples(kWidth, kHeight, 12);
    for (const std::uint32_t bits : {8u, 12u, 14u, 16u}) {
        const Samples samples = SmoothSamples(kWidth, kHeight, bits);
        if (bits == 8) add("eightbit", "8", FormHead(8) + PackBits(samples, 8));
        if (bits > 12)
            add("words", std::to_string(bits), FormHead(bits) + PackWords(samples, Order::kLittle));
        // One tile that every place of the picture shares.
        const Samples tile = samples.Cut(0, 0, 16, 24);
        add("dng", std::to_string(bits),
            FormHead(bits) + Bytes{23, 15, 5, 1} + PackBits(tile, bits));
    }
    for (const char* loader : {"packed12", "packed32773"})
        add(loader, "12", FormHead(12) + PackBits(twelve, 12));
    for (const char* loader : {"padded12", "epson12"})
        add(loader, "12", FormHead(12) + PackPadded12(twelve));
    for (std::uint32_t predictor = 1; predictor <= 7; ++predictor)
        add("jpeg", std::to_string(predictor),
            FormHead(12) + WriteLosslessJpeg(
                               twelve, {.components = 1 + predictor % 2, .predictor = predictor}));
    for (const std::uint32_t form : {0u, 1u, 3u, 5u})
        add("dngjpeg", std::to_string(form),
            FormHead(12) + Bytes{23, 15, 5, static_cast<std::uint8_t>(form)} +
                WriteLosslessJpeg(twelve.Cut(0, 0, 16, 24), {}));
    add("paired", "12", FormHead(12) + WritePairedJpeg(twelve, 12));
    Samples blocks = SmoothSamples(56, 22, 12);
    add("blocks", "56", FormHead(12, 45, 22) + PackBlocks(blocks));
}

// What makes the sections, see x3f_section_fuzz.cpp.
void AddX3fSeeds(TargetSeeds& seeds) {
    const Bytes pixels = {255, 1, 2, 3, 254, 2, 7, 8, 9, 7, 8, 200};
    const Bytes coded = CodedPixels(2, 2, pixels);
    const Bytes jpeg = JpegStream({}, 9, 9);
    const auto add = [&](const char* name, Bytes head, const Bytes& data) {
        seeds.push_back({"x3f_section_fuzz", {name, std::move(head) + data}});
    };
    add("plain", {0x3F, 2, 2, 0, 0, 0}, pixels);
    add("coded", {0xFF, 2, 2, 0, 0, 0}, coded);
    add("jpeg", {0xBF, 9, 9, 0, 0, 0}, jpeg);
    add("adjusted", {0x3F, 2, 2, 0, 0, 1},
        pixels + ExtendedHeader({"Auto"}, {1, 7, 8, 9}, {0.5f, 1, -1}));
    const Bytes list = PropertyList({{"ISO", "100"},
                                     {"SH_DESC", "1/180"},
                                     {"TIME", "978309395"},
                                     {"FLASH", "OFF"},
                                     {"WB_DESC", "Auto"},
                                     {"AEMODE", "8"},
                                     {"PMODE", "A"},
                                     {"FLENGTH", "24.2"}});
    add("properties", {0x00, 2, 2, 0, 8, 0}, Bytes(list.begin() + 24, list.end()));
}

void AddPhotoshopSeeds(TargetSeeds& seeds) {
    const Bytes stream = JpegStream({}, 160, 120);
    const auto block = [](std::uint32_t id, const Bytes& sized) {
        return ByteWriter(Order::kBig).Raw(FromText("8BIM")).U16(id).U16(0).Raw(sized).bytes;
    };
    const Bytes thumbnail = ByteWriter(Order::kBig).U32(1).Pad(28).Raw(stream).bytes;
    const Bytes sound = ByteWriter(Order::kBig).Sized(thumbnail).bytes;
    const Bytes endless = ByteWriter(Order::kBig).U32(0xFFFFFFFF).Raw(thumbnail).bytes;
    seeds.push_back({"photoshop_fuzz",
                     {"blocks", block(1005, {0, 0, 0, 4, 0, 0, 0, 0}) + block(1036, sound) +
                                    block(1036, endless)}});
}

void AddScriptSeeds(TargetSeeds& seeds) {
    seeds.push_back({"script_fuzz",
                     {"class", FromText("HKCR { NoRemove CLSID { ForceRemove '{%APPID%}' = s "
                                        "'It''s' { InprocServer32 = s '%MODULE%' { val "
                                        "Threading = s 'Apartment' } } } }")}});
    seeds.push_back({"script_fuzz",
                     {"all", FromText("HKLM\n{\n\tDelete Old\n\tNoRemove val N = d &HFF\n\tval "
                                      "'M' = d 0x10 K = d 7 }\nHKEY_CURRENT_USER { A { B } }")}});
}

}  // namespace

TargetSeeds PartSeeds() {
    TargetSeeds seeds;
    AddRawSeeds(seeds);
    AddX3fSeeds(seeds);
    AddPhotoshopSeeds(seeds);
    AddScriptSeeds(seeds);
    return seeds;
}

}  // namespace qmx::fuzz
