#pragma once
// What the registrar's interpreter needs of the system.  It keeps its texts in the standard
// library's wide strings, which natively know the host's own wchar_t alone: this target is built
// with that one, apart from the shim.

#include <cstdint>

struct HKEY__;
using HKEY = HKEY__*;
using DWORD = std::uint32_t;
using ULONGLONG = std::uint64_t;

inline constexpr DWORD MAXDWORD = 0xFFFFFFFF;

#define HKEY_CLASSES_ROOT (reinterpret_cast<HKEY>(std::uintptr_t{0x80000000}))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(std::uintptr_t{0x80000001}))
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(std::uintptr_t{0x80000002}))
#define HKEY_USERS (reinterpret_cast<HKEY>(std::uintptr_t{0x80000003}))

int lstrcmpiW(const wchar_t* left, const wchar_t* right);
