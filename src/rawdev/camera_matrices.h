#pragma once
// Colour matrices of the cameras whose raw files reach this path.

#include <cstdint>
#include <string_view>

namespace qmx {

struct CameraMatrix {
    const char* camera;              // make, a blank, model
    std::int16_t xyzToCamera[3][3];  // x 10000; rows red, green, blue of the camera
};

// The row that has the longest part of "make model"; null when none fits.
const CameraMatrix* FindCameraMatrix(std::string_view camera);

}  // namespace qmx
