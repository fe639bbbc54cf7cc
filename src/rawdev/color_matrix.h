#pragma once
// From what is known of a camera's colours to the numbers that the development multiplies with.

#include "rawdev/raw_decode_state.h"
#include "rawdev/raw_tags.h"

namespace qmx {

// Rows are the camera's red, green and blue, columns X, Y and Z for daylight (D65).
struct XyzToCamera {
    double rows[3][3];
};

// Sets `cameraToOutput` and, unless a rule fixed them, the preset multipliers that make daylight's
// white neutral; the picture then is no longer in raw colours.  False, with nothing set, when the
// matrix cannot be inverted.
bool SetColorMatrix(RawDecodeState& state, const XyzToCamera& matrix);

// The same by the camera's name; nothing when no matrix is known.
void SetMatrixByName(RawDecodeState& state, const char* make, const char* model);

// Matrix and white balance of the DNG colour tags, white balance of Panasonic's and Epson's tags.
void ReadColorTags(RawDecodeState& state, const RawColorTags& tags);

// The camera's multipliers where they are known, else the preset ones; all finite and above 0.
void ChooseMultipliers(const RawDecodeState& state, float (&multipliers)[kColors]);

}  // namespace qmx
