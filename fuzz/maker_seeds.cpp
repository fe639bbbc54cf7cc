#include <algorithm>
#include <iterator>
#include <string_view>

#include "support/parse.h"
#include "target_seeds.h"

namespace qmx::fuzz {
namespace {

using namespace std::string_view_literals;
using test::operator+;
using test::Bytes;
using test::ByteWriter;
using test::Order;

struct Maker {
    std::uint32_t id;
    const char* name;
    bool hasSection;
    std::string_view header;  // of a note, up to its entry count
    std::int32_t modelId;     // one that rules treat in their own way
};

constexpr Maker kMakers[] = {
    {kMakerCanon, "canon", true, ""sv, 1024},
    {kMakerNikon, "nikon", true, "Nikon\0\2\0\0\0"sv, 1},
    {kMakerMinolta, "minolta", true, ""sv, 0},
    {kMakerOlympus, "olympus", true, "OLYMP\0\1\0"sv, 0},
    {kMakerSony, "sony", true, "SONY DSC \0\0\0"sv, 8192},
    {kMakerFujifilm, "fujifilm", true, "FUJIFILM\14\0\0\0"sv, 0},
    {kMakerCasio, "casio", true, "QVC\0\0\0"sv, 0},
    {kMakerRicoh, "ricoh", true, "Ricoh\0\0\0"sv, 0},
    {kMakerPanasonic, "panasonic", true, "Panasonic\0\0\0"sv, 0},
    {kMakerSanyo, "sanyo", true, "SANYO\0\1\0"sv, 0},
    {kMakerPentax, "pentax", true, "AOC\0"sv, 0},
    {kMakerSigma, "sigma", true, "SIGMA\0\0\0\1\0"sv, 0},
    {kMakerSeiko, "seiko", true, "EPSON\0\1\0"sv, 0},
    {kMakerMamiya, "mamiya", true, ""sv, 0},
    {kMakerLeica, "leica", true, "LEICA\0\0\0"sv, 0},
    {kMakerKddi, "kddi", false, "KDDI\0\0\0\0"sv, 0},
    {kMakerHasselblad, "hasselblad", false, ""sv, 0},
};

// Where makers have their tags.
struct TagRange {
    std::uint32_t first, count;
};
constexpr TagRange kRanges[] = {{0x0000, 256}, {0x0100, 256}, {0x0200, 64}, {0x0E00, 64},
                                {0x1000, 80},  {0x2000, 160}, {0x3000, 64}, {0x4000, 64},
                                {0x9000, 96},  {0x9400, 16},  {0xB000, 96}};

// What a target is given in front of a TIFF structure, see note_fuzz.cpp.
Bytes Head(Order order, std::int32_t modelId, std::uint32_t notePosition) {
    return ByteWriter(Order::kLittle)
        .U8(order == Order::kBig ? 1 : 0)
        .U8(0)
        .U16(static_cast<std::uint32_t>(modelId) & 0xFFFF)
        .U16(notePosition)
        .bytes;
}

// A note with every tag of a range; long values are the same bytes.
Bytes SweptNote(const Maker& maker, Order order, const TagRange& range, std::uint16_t type,
                std::uint32_t count) {
    constexpr std::uint32_t kNotePosition = 8;
    // Notes that carry a TIFF header count their offsets from it.
    const bool nests = maker.id == kMakerNikon;
    Bytes note = test::FromText(maker.header);
    if (maker.id == kMakerPentax) note = note + test::FromText(order == Order::kBig ? "MM" : "II");
    const std::uint32_t base = nests ? kNotePosition + static_cast<std::uint32_t>(note.size()) : 0;
    ByteWriter writer(order);
    if (nests) writer.Raw(test::FromText(order == Order::kBig ? "MM" : "II")).U16(42).U32(8);
    const std::size_t valuesAt =
        kNotePosition + note.size() + writer.bytes.size() + 2 + std::size_t{12} * range.count;
    writer.U16(range.count);
    for (std::uint32_t i = 0; i < range.count; ++i)
        writer.U16(range.first + i)
            .U16(type)
            .U32(count)
            .U32(static_cast<std::uint32_t>(valuesAt) - base);
    for (std::uint32_t i = 0; i < 256; ++i) writer.U8(i % 7);
    return Head(order, maker.modelId, kNotePosition) + Bytes(kNotePosition) + note + writer.bytes;
}

void AddSwept(const Maker& maker, TargetSeeds& seeds) {
    constexpr struct {
        std::uint16_t type;
        std::uint32_t count;
    } kForms[] = {{kTypeUndefined, 200}, {kTypeShort, 100}, {kTypeShort, 1}, {kTypeAscii, 30}};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        for (const TagRange& range : kRanges) {
            for (const auto& form : kForms) {
                if (order == Order::kBig && form.count != 100) continue;
                const std::string name =
                    std::to_string(range.first) + "-" + std::to_string(form.type) + "-" +
                    std::to_string(form.count) + (order == Order::kBig ? "-big" : "");
                seeds.push_back({MakerTarget(maker.id, "note"),
                                 {name, SweptNote(maker, order, range, form.type, form.count)}});
            }
        }
    }
}

std::uint32_t ReadAt(const Bytes& file, std::size_t at, Order order) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | file[at + (order == Order::kBig ? i : 3 - i)];
    return value;
}

// The TIFF structure in a file, entered at its note; nothing when there is none.
Bytes CutOutNote(const Bytes& file, std::int32_t modelId) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        const Bytes tag = ByteWriter(order).U16(0x927C).U16(kTypeUndefined).bytes;
        const Bytes mark = test::FromText(order == Order::kBig ? "MM\0*"sv : "II*\0"sv);
        const auto start = std::search(file.begin(), file.end(), mark.begin(), mark.end());
        const auto entry = std::search(file.begin(), file.end(), tag.begin(), tag.end());
        if (start == file.end() || file.end() - entry < 12) continue;
        const std::uint32_t position =
            ReadAt(file, static_cast<std::size_t>(entry - file.begin()) + 8, order);
        if (position <= 0xFFFF) return Head(order, modelId, position) + Bytes(start, file.end());
    }
    return {};
}

}  // namespace

std::string MakerTarget(std::uint32_t maker, const std::string& kind) {
    const auto* row = std::find_if(std::begin(kMakers), std::end(kMakers),
                                   [&](const Maker& candidate) { return candidate.id == maker; });
    if (row == std::end(kMakers) || (kind == "section" && !row->hasSection)) return {};
    return std::string(row->name) + "_" + kind + "_fuzz";
}

TargetSeeds NoteSeeds(const std::vector<test::SeedFile>& files) {
    TargetSeeds seeds;
    for (const Maker& maker : kMakers) AddSwept(maker, seeds);
    for (const test::SeedFile& file : files) {
        const ImageInfo info = test::Parse(file.bytes).info;
        const std::string target = MakerTarget(info.makerId, "note");
        const Bytes note = CutOutNote(file.bytes, info.modelId);
        if (!target.empty() && !note.empty()) seeds.push_back({target, {file.name, note}});
    }
    return seeds;
}

TargetSeeds SectionSeeds(const std::vector<test::SeedFile>& files) {
    constexpr std::uint32_t kMostCode = 24;
    const Bytes capacities = {0xFF, 0xFF};
    TargetSeeds seeds;
    for (const test::SeedFile& file : files) {
        const ImageInfo info = test::Parse(file.bytes).info;
        const std::string target = MakerTarget(info.makerId, "section");
        if (target.empty()) continue;
        // In the order of section_fuzz.cpp.
        const auto* whole = reinterpret_cast<const std::uint8_t*>(&info);
        const std::uint8_t* area = info.makerFields;
        const Bytes record = Bytes(area, area + kMakerFieldsSize) + Bytes(whole, area) +
                             Bytes(whole + offsetof(ImageInfo, hasGps), whole + sizeof info);
        seeds.push_back({target, {file.name, capacities + record}});
    }
    for (const Maker& maker : kMakers) {
        const std::string target = MakerTarget(maker.id, "section");
        for (std::uint32_t code = 0; !target.empty() && code <= kMostCode; ++code) {
            ByteWriter record(Order::kLittle);
            for (std::size_t i = 0; i < kMakerFieldsSize / 4; ++i) record.U32(code);
            seeds.push_back({target, {"code-" + std::to_string(code), capacities + record.bytes}});
        }
    }
    return seeds;
}

}  // namespace qmx::fuzz
