#include "makernote/maker_identity.h"

#include <string_view>

#include "parse/core/cursor.h"

namespace qmx {
namespace {

// What trying all tests costs, in bytes of directories.
constexpr std::uint32_t kSearchWork = 48;

enum class Case { kExact, kIgnored };

struct MakeTest {
    std::string_view text;
    Case letterCase;
    MakerId maker;
    std::size_t position = 0;  // where in the Make the text stands
};

// In the order of testing; the first that passes decides.
constexpr MakeTest kTests[] = {
    {"Canon", Case::kExact, kMakerCanon},
    {"NIKON", Case::kExact, kMakerNikon},
    {"Minolta", Case::kExact, kMakerMinolta},
    {"MINOLTA", Case::kIgnored, kMakerMinolta, 7},  // "KONICA MINOLTA"
    {"OLYMPUS", Case::kExact, kMakerOlympus},
    {"FUJIFILM", Case::kExact, kMakerFujifilm},
    {"SONY", Case::kExact, kMakerSony},
    {"Estman", Case::kExact,
     kMakerKodak},  // Deliberate: no camera writes this, Kodak stays unknown
    {"CASIO", Case::kExact, kMakerCasio},
    {"Panaso", Case::kExact, kMakerPanasonic},
    {"SANYO", Case::kExact, kMakerSanyo},
    {"PENTAX", Case::kIgnored, kMakerPentax},
    {"SIGMA", Case::kExact, kMakerSigma},
    {"SEIKO", Case::kExact, kMakerSeiko},
    {"RICOH", Case::kIgnored, kMakerRicoh},
    {"Mamiya", Case::kIgnored, kMakerMamiya},
    {"LEICA", Case::kIgnored, kMakerLeica},
    {"SAMSUNG", Case::kIgnored, kMakerSamsung},
    {"KDDI-CA", Case::kIgnored, kMakerKddi},
    {"Hassel", Case::kIgnored, kMakerHasselblad},
};

constexpr char ToLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool Passes(const MakeTest& test, std::string_view make) {
    if (make.size() < test.position + test.text.size()) return false;
    for (std::size_t i = 0; i < test.text.size(); ++i) {
        const char found = make[test.position + i];
        const char wanted = test.text[i];
        const bool same =
            test.letterCase == Case::kExact ? found == wanted : ToLower(found) == ToLower(wanted);
        if (!same) return false;
    }
    return true;
}

}  // namespace

void IdentifyMaker(ParseContext& ctx) {
    SpendWork(ctx, kSearchWork);
    const std::string_view make = FieldText(ctx.info.cameraMake);
    for (const MakeTest& test : kTests) {
        if (!Passes(test, make)) continue;
        ctx.info.makerId = test.maker;
        return;
    }
}

}  // namespace qmx
