#include "hostile/corpus.h"

#include <algorithm>
#include <fstream>

#include "bench/platform.h"

#ifndef _WIN32
#include "shim.h"
#endif

namespace qmx::hostile {
namespace {

std::string ExtensionOf(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? "" : name.substr(dot);
}

}  // namespace

std::vector<std::filesystem::path> ListFiles(const std::vector<std::filesystem::path>& places) {
    std::vector<std::filesystem::path> files;
    for (const auto& place : places) {
        if (!std::filesystem::is_directory(place)) {
            files.push_back(place);
            continue;
        }
        std::vector<std::filesystem::path> inside;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(place))
            if (entry.is_regular_file()) inside.push_back(entry.path());
        std::sort(inside.begin(), inside.end());
        files.insert(files.end(), inside.begin(), inside.end());
    }
    return files;
}

test::Bytes ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

#ifdef _WIN32

struct Scratch::Content {
    std::filesystem::path stem;
    std::filesystem::path path;
};

Scratch::Scratch(std::filesystem::path folder, std::string stem)
    : content_(new Content{folder / stem, {}}) {}

const wchar_t* Scratch::Put(const test::Bytes& bytes, const std::string& name) {
    content_->path = content_->stem;
    content_->path += ExtensionOf(name);
    const HANDLE file = CreateFileW(content_->path.c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return nullptr;
    DWORD written = 0;
    const BOOL done =
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    return done ? content_->path.c_str() : nullptr;
}

#else

struct Scratch::Content {
    test::Bytes bytes;
    WideText extension;
    std::unique_ptr<qmxshim::MemoryFile> file;
};

Scratch::Scratch(std::filesystem::path, std::string) : content_(new Content) {}

const wchar_t* Scratch::Put(const test::Bytes& bytes, const std::string& name) {
    content_->file.reset();
    content_->bytes = bytes;
    content_->extension = bench::ToWide(ExtensionOf(name));
    content_->file = std::make_unique<qmxshim::MemoryFile>(
        content_->bytes.data(), content_->bytes.size(), content_->extension.data());
    return content_->file->Path();
}

#endif

Scratch::~Scratch() = default;

}  // namespace qmx::hostile
