#include "text/maker_text.h"

#include <array>

namespace qmx {
namespace {

constexpr MakerText kNoMaker = {};

constexpr std::array<MakerText, 0> kMakers = {};

}  // namespace

const MakerText& FindMakerText(std::uint32_t makerId) {
    for (const MakerText& row : kMakers) {
        if (row.makerId == makerId) return row;
    }
    return kNoMaker;
}

}  // namespace qmx
