// The Exif orientation in words, and as a turn for a page that shows the picture upright.
#pragma once

#include <cstdint>
#include <string_view>

namespace qmx {

// What makes the stored picture upright; "not given" for anything but 1..8.
std::string_view OrientationWords(std::uint32_t orientation);

// The CSS transform for the same; empty when nothing is to be done.
std::string_view OrientationTransform(std::uint32_t orientation);

}  // namespace qmx
