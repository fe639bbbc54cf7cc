#pragma once
// Files to ask about: found in folders, read, and put where the library can open them.

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "support/tiff_builder.h"

namespace qmx::hostile {

using test::TemporaryFolder;
using WideText = std::vector<wchar_t>;  // NUL-terminated UTF-16

// The files named, and all files in the folders named, in a fixed order.
std::vector<std::filesystem::path> ListFiles(const std::vector<std::filesystem::path>& places);

test::Bytes ReadFile(const std::filesystem::path& path);

// A place for bytes that the library is to open as a file: in memory natively, in `folder` on
// Windows.  Each call replaces what was there.
class Scratch {
public:
    Scratch(std::filesystem::path folder, std::string stem);
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch();

    // The path, with the extension of `name`; null when the file is still open somewhere.
    const wchar_t* Put(const test::Bytes& bytes, const std::string& name);

private:
    struct Content;
    std::unique_ptr<Content> content_;
};

}  // namespace qmx::hostile
