#include "parse/core/path_extension.h"

namespace qmx {
namespace {

// Works on paths of any length, unlike the shell's own function, which promises 260 characters.
const wchar_t* FindExtension(const wchar_t* path) {
    const wchar_t* dot = nullptr;
    for (; *path != 0; ++path) {
        if (*path == L'.') dot = path;
        if (*path == L'\\' || *path == L' ') dot = nullptr;
    }
    return dot != nullptr ? dot : path;
}

}  // namespace

bool HasExtension(const wchar_t* path, std::string_view extension) {
    const wchar_t* found = FindExtension(path);
    for (const char wanted : extension) {
        const bool upper = *found >= L'A' && *found <= L'Z';
        const int lower = upper ? *found + (L'a' - L'A') : *found;
        if (lower != static_cast<unsigned char>(wanted)) return false;
        ++found;
    }
    return *found == 0;
}

}  // namespace qmx
