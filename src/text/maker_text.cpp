#include "text/maker_text.h"

#include "text/maker_sections.h"

namespace qmx {
namespace {

constexpr MakerText kNoMaker = {};

// Maker, section, lens, white balance, line of the long text.
// clang-format off
constexpr MakerText kMakers[] = {
    {kMakerCanon, EmitCanonSection, AppendCanonLens, AppendCanonWhiteBalance,
     AppendCanonPictureStyle},
    {kMakerNikon, EmitNikonSection, AppendNikonLens, AppendNikonWhiteBalance, nullptr},
    {kMakerMinolta, EmitMinoltaSection, AppendMinoltaLens, AppendMinoltaWhiteBalance, nullptr},
    {kMakerOlympus, EmitOlympusSection, AppendOlympusLens, AppendOlympusWhiteBalance, nullptr},
    {kMakerSony, EmitSonySection, AppendSonyLens, AppendSonyWhiteBalance, nullptr},
    {kMakerFujifilm, EmitFujifilmSection, AppendFujifilmLens, AppendFujifilmWhiteBalance, nullptr},
    {kMakerCasio, EmitCasioSection, nullptr, nullptr, nullptr},
    {kMakerRicoh, EmitRicohSection, nullptr, nullptr, nullptr},
    {kMakerPanasonic, EmitPanasonicSection, AppendPanasonicLens, AppendPanasonicWhiteBalance,
     AppendPanasonicSceneMode},
    {kMakerSanyo, EmitSanyoSection, nullptr, nullptr, nullptr},
    {kMakerPentax, EmitPentaxSection, AppendPentaxLens, AppendPentaxWhiteBalance, nullptr},
    {kMakerSigma, EmitSigmaSection, nullptr, AppendSigmaWhiteBalance, nullptr},
    {kMakerSeiko, EmitSeikoSection, nullptr, nullptr, nullptr},
    {kMakerMamiya, EmitMamiyaSection, nullptr, nullptr, nullptr},
    {kMakerLeica, EmitLeicaSection, AppendLeicaLens, AppendLeicaWhiteBalance, AppendLeicaSceneMode},
};
// clang-format on

}  // namespace

const MakerText& FindMakerText(std::uint32_t makerId) {
    for (const MakerText& row : kMakers) {
        if (row.makerId == makerId) return row;
    }
    return kNoMaker;
}

}  // namespace qmx
