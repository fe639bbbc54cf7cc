// qmxexif.dll, loaded at run time: the exported functions this program uses.
#pragma once

#include <qmxexif.h>

#include <string>

namespace qmx {

// The functions by the header's names; all set once `LoadQmxexif` has succeeded.
struct Library {
    decltype(&::ExifGetThumbsnail) getThumbnail = nullptr;
    decltype(&::ExifGetPrimaryImage) getPrimaryImage = nullptr;
    decltype(&::ExifGetExifInfoEx) getInfo = nullptr;
    decltype(&::ExifEnumInfo) enumInfo = nullptr;
    decltype(&::ExifIsExifFile) isExifFile = nullptr;
    std::wstring path;
};

// Loads `path`, or without one the library beside this program, else the system folder's.
// Stays loaded until the process ends.  False, with the reason in `error`, when that fails.
bool LoadQmxexif(const std::wstring& path, Library& library, std::wstring& error);

}  // namespace qmx
