#pragma once
// The one door through which the system's headers enter.  The native test build finds a small
// stand-in of the same names in tests/shim.

#include <windows.h>

#include <objidl.h>

static_assert(sizeof(wchar_t) == 2, "texts are UTF-16");
static_assert(L"±"[0] == 0x00B1, "sources are read as UTF-8");
