#pragma once
// Lenses described by their range, for makers whose data give numbers instead of a name.

#include <cstdint>

#include "text/text_buffer.h"

namespace qmx {

// "AF VR 18-200mm F3.5-5.6G".  `lensType`: bit 0 manual focus, 1 D, 2 G, 3 VR.  `range`: shortest
// and longest focal length in mm, largest aperture at each.
TextBuffer& FormatNikonLensText(TextBuffer& dst, std::int32_t lensType, const float (&range)[4]);

// "14-42mm F3.5-5.6"; without apertures when one of them is not set.
TextBuffer& FormatLensRange(TextBuffer& dst, std::int32_t minFocal, std::int32_t maxFocal,
                            float minAperture, float maxAperture);

}  // namespace qmx
