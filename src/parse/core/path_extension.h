#pragma once
// File name extensions, as the Windows shell defines them.

#include <string_view>

#include "parse/core/win32.h"

namespace qmx {

// Whether the path's extension (from the last "." of its last component, which holds no blank
// behind it) is `extension`, which is lower-case ASCII with its dot.  Case does not matter.
bool HasExtension(const wchar_t* path, std::string_view extension);

}  // namespace qmx
