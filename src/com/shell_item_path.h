#pragma once
// The file behind an item of the shell.

#include <shobjidl.h>

#include <span>

namespace qmx {

// Room for a path as the shell's drop lists carry it, in characters.
inline constexpr std::size_t kDropPathCapacity = 520;

// Stores the path of the item's file; false when the item has none.
bool GetItemPath(IShellItem& item, std::span<wchar_t, kDropPathCapacity> path);

}  // namespace qmx
