#pragma once
// Text conversions that the parts of the shim share.

#include <cstddef>

namespace qmxshim {

// False when the path does not fit.
bool PathToUtf8(const wchar_t* path, char* dst, std::size_t capacity);

}  // namespace qmxshim
