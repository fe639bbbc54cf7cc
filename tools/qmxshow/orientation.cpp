#include "orientation.h"

namespace qmx {
namespace {

struct Turn {
    std::string_view words;
    std::string_view transform;  // applied from right to left
};

// Index = Exif code: where the stored picture's first row and first column belong.
constexpr Turn kTurns[] = {
    {"not given", ""},
    {"upright", ""},
    {"mirror left to right", "scaleX(-1)"},
    {"turn by 180 degrees", "rotate(180deg)"},
    {"mirror top to bottom", "scaleY(-1)"},
    {"turn by 90 degrees clockwise, then mirror left to right", "scaleX(-1) rotate(90deg)"},
    {"turn by 90 degrees clockwise", "rotate(90deg)"},
    {"turn by 90 degrees counter-clockwise, then mirror left to right",
     "scaleX(-1) rotate(-90deg)"},
    {"turn by 90 degrees counter-clockwise", "rotate(-90deg)"},
};

const Turn& FindTurn(std::uint32_t orientation) {
    return kTurns[orientation <= 8 ? orientation : 0];
}

}  // namespace

std::string_view OrientationWords(std::uint32_t orientation) { return FindTurn(orientation).words; }

std::string_view OrientationTransform(std::uint32_t orientation) {
    return FindTurn(orientation).transform;
}

}  // namespace qmx
