#pragma once
// The library as a client sees it.  On Windows the functions are looked up in the DLL that the
// environment variable QMX_DLL names; natively they are linked in, so that sanitizers see inside.

#include <qmxexif.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "support/tiff_builder.h"

namespace qmx::test {

struct Api {
    decltype(&ExifGetThumbsnail) getThumbsnail;
    decltype(&ExifGetPrimaryImageEx) getPrimaryImageEx;
    decltype(&ExifGetPrimaryImage) getPrimaryImage;
    decltype(&ExifGetThumbnailImage) getThumbnailImage;
    decltype(&ExifGetInfoTip) getInfoTip;
    decltype(&ExifEnumInfo) enumInfo;
    decltype(&ExifIsExifFile) isExifFile;
    decltype(&ExifGetDateTimeString) getDateTimeString;
    decltype(&ExifGetExifInfo) getExifInfo;
    decltype(&ExifGetExifInfoEx) getExifInfoEx;
    decltype(&ExifDrawDigiText) drawDigiText;
};

#ifdef _WIN32
// Ends the program when the module is null or does not export the function.
template <class Function>
void LookUp(HMODULE module, const char* name, Function& function) {
    const FARPROC found = module != nullptr ? GetProcAddress(module, name) : nullptr;
    if (found == nullptr) {
        std::fprintf(stderr, "%s is not to be found\n", name);
        std::exit(1);
    }
    std::memcpy(&function, &found, sizeof function);
}
#endif

// Ends the program when the library cannot be loaded.
const Api& Library();

std::vector<wchar_t> WidePath(const std::filesystem::path& path);

// A file with these bytes in a folder of its own, both deleted at the end of the scope.
class TestFile {
public:
    // `name` is UTF-8; a name that begins with "." is only an extension.
    TestFile(const Bytes& bytes, const std::string& name);

    const wchar_t* path() const { return widePath_.data(); }
    const std::filesystem::path& folder() const { return folder_.path; }

private:
    TemporaryFolder folder_;
    std::vector<wchar_t> widePath_;
};

// One callback of ExifEnumInfo in readable form: "# heading", "label = value" or "label (group)".
using Listing = std::vector<std::string>;
Listing ListOf(const wchar_t* path);

// The record with its texts, zeroed before the request.
struct Answer {
    UINT32 result;
    InfoRequest record;
    std::string shortText;
    std::string longText;
};
Answer AskFor(const wchar_t* path);

}  // namespace qmx::test
