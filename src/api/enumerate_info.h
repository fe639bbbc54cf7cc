#pragma once
// The driver behind ExifEnumInfo: parses a file and emits what it says.

#include <cstdint>

#include "text/enum_context.h"

namespace qmx {

inline constexpr std::uint32_t kEnumFailed = 0xFFFFFFFF;

// 1 when the file was parsed, else kEnumFailed; so it is with a null context.
std::uint32_t EnumerateInfo(const wchar_t* path, const EnumContext* context);

}  // namespace qmx
