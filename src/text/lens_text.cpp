#include "text/lens_text.h"

#include "parse/core/image_info.h"
#include "parse/core/numeric.h"
#include "text/value_format.h"

namespace qmx {
namespace {

enum NikonLensFlags : std::int32_t {
    kNikonManualFocus = 1,
    kNikonD = 2,
    kNikonG = 4,
    kNikonVibrationReduction = 8,
};

}  // namespace

TextBuffer& FormatNikonLensText(TextBuffer& dst, std::int32_t lensType, const float (&range)[4]) {
    const auto& [minFocal, maxFocal, minAperture, maxAperture] = range;
    // Deliberate: only a pure manual lens reads MF, one with further bits is an AF lens.
    dst.Append(lensType == kNikonManualFocus ? L"MF " : L"AF ");
    if ((lensType & kNikonVibrationReduction) != 0) dst.Append(L"VR ");
    dst.AppendInteger(TruncateToI32(minFocal));
    if (minFocal != maxFocal) dst.Append(L'-').AppendInteger(TruncateToI32(maxFocal));
    FormatRoundedTenths(AppendMillimetreUnit(dst).Append(L" F"), minAperture);
    // A single focal length shows a single aperture.
    if (minFocal != maxFocal && minAperture != maxAperture) {
        FormatRoundedTenths(dst.Append(L'-'), maxAperture);
    }
    if ((lensType & kNikonG) != 0) return dst.Append(L'G');
    return (lensType & kNikonD) != 0 ? dst.Append(L'D') : dst;
}

TextBuffer& FormatLensRange(TextBuffer& dst, std::int32_t minFocal, std::int32_t maxFocal,
                            float minAperture, float maxAperture) {
    dst.AppendInteger(minFocal);
    if (maxFocal != minFocal) dst.Append(L'-').AppendInteger(maxFocal);
    AppendMillimetreUnit(dst);
    if (!IsSet(minAperture) || !IsSet(maxAperture)) return dst;
    FormatRoundedTenths(dst.Append(L" F"), minAperture);
    if (maxAperture != minAperture) FormatRoundedTenths(dst.Append(L'-'), maxAperture);
    return dst;
}

}  // namespace qmx
