// Buffered output of UTF-8 text to a file, a pipe or a console.
#pragma once

#include <windows.h>

#include <charconv>
#include <string>
#include <string_view>

namespace qmx {

// Does not own the handle.  On a console the text is written as UTF-16, whatever its code page.
// After the first failed write everything further is dropped and `HasFailed` tells.
class Writer {
public:
    explicit Writer(HANDLE handle);
    ~Writer() { Flush(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // Each piece must end on a character's end.
    Writer& Put(std::string_view utf8);
    Writer& Put(std::wstring_view text);
    template <class Number>
    Writer& PutNumber(Number value) {
        char digits[64];
        const auto result = std::to_chars(digits, digits + sizeof digits, value);
        return Put(std::string_view(digits, static_cast<std::size_t>(result.ptr - digits)));
    }

    void Flush() noexcept;
    bool IsConsole() const { return isConsole; }
    bool HasFailed() const { return lastError != ERROR_SUCCESS; }
    DWORD LastError() const { return lastError; }

private:
    void WriteToConsole();
    void WriteBytes();

    HANDLE handle;
    bool isConsole;
    DWORD lastError = ERROR_SUCCESS;
    std::string buffer;
};

}  // namespace qmx
