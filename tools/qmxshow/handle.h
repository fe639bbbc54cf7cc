// Owner of a file handle.
#pragma once

#include <windows.h>

#include <memory>

namespace qmx {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const {
        if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    }
};

// Holds what CreateFileW returned; test with IsOpen, since failure is not null there.
using FileHandle = std::unique_ptr<void, HandleCloser>;

inline bool IsOpen(const FileHandle& file) { return file && file.get() != INVALID_HANDLE_VALUE; }

}  // namespace qmx
