#include "text/sony_lens_spec.h"

namespace qmx {
namespace {

struct Feature {
    std::uint32_t mask;
    std::uint32_t value;
    const wchar_t* text;
};

// clang-format off
constexpr Feature kPrefixes[] = {
    {0x0300, 0x0100, L"DT "},
    {0x0300, 0x0200, L"FE "},
    {0x0300, 0x0300, L"E "},
    {0x4000, 0x4000, L"PZ "},
};

constexpr Feature kSuffixes[] = {
    {0x00E0, 0x0020, L" STF"},
    {0x00E0, 0x0040, L" Reflex"},
    {0x00E0, 0x0060, L" Macro"},
    {0x00E0, 0x0080, L" Fisheye"},
    {0x000C, 0x0004, L" ZA"},
    {0x000C, 0x0008, L" G"},
    {0x0003, 0x0001, L" SSM"},
    {0x0003, 0x0002, L" SAM"},
    {0x8000, 0x8000, L" OSS"},
    {0x2000, 0x2000, L" LE"},
    {0x0800, 0x0800, L" II"},
};
// clang-format on

constexpr std::int32_t kDamaged = -1;

// Four decimal digits; other digits are a sign of damage.
std::int32_t FocalLength(std::uint8_t high, std::uint8_t low) {
    std::int32_t value = 0;
    for (const int digit : {high >> 4, high & 0xF, low >> 4, low & 0xF}) {
        if (digit > 9) return kDamaged;
        value = value * 10 + digit;
    }
    return value;
}

template <std::size_t Count>
void AppendFeatures(TextBuffer& dst, std::uint32_t flags, const Feature (&features)[Count]) {
    for (const Feature& feature : features)
        if ((flags & feature.mask) == feature.value) dst.Append(feature.text);
}

// Two digits, each up to 15.
void AppendAperture(TextBuffer& dst, std::uint8_t digits) {
    const std::int32_t tenths = (digits >> 4) * 10 + (digits & 0xF);
    dst.AppendInteger(tenths / 10);
    if (tenths % 10 != 0) dst.Append(L'.').AppendInteger(tenths % 10);
}

}  // namespace

bool FormatSonyLensSpec(TextBuffer& dst, const std::uint8_t (&spec)[8]) {
    const std::int32_t shortest = FocalLength(spec[1], spec[2]);
    const std::int32_t longest = FocalLength(spec[3], spec[4]);
    if (shortest <= 0 || longest == kDamaged || (longest != 0 && longest < shortest)) return false;
    const auto flags = static_cast<std::uint32_t>(spec[0] << 8 | spec[7]);
    AppendFeatures(dst, flags, kPrefixes);
    dst.AppendInteger(shortest);
    if (longest > shortest) dst.Append(L'-').AppendInteger(longest);
    dst.Append(L"mm");
    if (spec[5] != 0) {
        AppendAperture(dst.Append(L" F"), spec[5]);
        if (spec[6] != 0 && spec[6] != spec[5]) AppendAperture(dst.Append(L'-'), spec[6]);
    }
    AppendFeatures(dst, flags, kSuffixes);
    return true;
}

}  // namespace qmx
