#pragma once
// Files in memory for the native test build: the path "mem:" with a number names a registered
// buffer.  What follows the number is ignored by the shim, so a path may end in an extension.

#include <windows.h>

#include <cstddef>
#include <cstdint>

namespace qmxshim {

// Makes `size` bytes openable as "mem:<result>".  The bytes stay the caller's and must outlive
// their use.  Any thread may call this.
std::uint32_t RegisterMemoryFile(const void* bytes, std::size_t size);
void UnregisterMemoryFile(std::uint32_t id);

// A registered buffer and its path, for the time of a scope.
class MemoryFile {
public:
    // `suffix` of at most 32 characters is what the path ends in, for example L".jpg".
    MemoryFile(const void* bytes, std::size_t size, const wchar_t* suffix = L"");
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { UnregisterMemoryFile(id_); }
    const wchar_t* Path() const { return path_; }

private:
    std::uint32_t id_;
    wchar_t path_[48];
};

}  // namespace qmxshim
