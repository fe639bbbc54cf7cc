#include "writer.h"

#include <algorithm>
#include <new>

#include "utf8.h"

namespace qmx {
namespace {

constexpr std::size_t kFlushBytes = 64 * 1024;
constexpr std::size_t kConsoleChunk = 8 * 1024;  // characters; older consoles refuse 32 Ki and more

bool AskIsConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

}  // namespace

Writer::Writer(HANDLE target) : handle(target), isConsole(AskIsConsole(target)) {}

Writer& Writer::Put(std::string_view utf8) {
    if (HasFailed()) return *this;
    buffer.append(utf8);
    if (buffer.size() >= kFlushBytes) Flush();
    return *this;
}

Writer& Writer::Put(std::wstring_view text) { return Put(ToUtf8(text)); }

void Writer::Flush() noexcept {
    if (buffer.empty() || HasFailed()) return;
    try {
        if (isConsole) {
            WriteToConsole();
        } else {
            WriteBytes();
        }
    } catch (const std::bad_alloc&) {
        lastError = ERROR_NOT_ENOUGH_MEMORY;
    }
    buffer.clear();
}

void Writer::WriteToConsole() {
    const std::wstring text = ToWide(buffer);
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = (std::min)(kConsoleChunk, text.size() - at);
        if (length > 1 && text[at + length - 1] >= 0xD800 && text[at + length - 1] <= 0xDBFF) {
            --length;  // keep a pair together
        }
        DWORD written = 0;
        if (!WriteConsoleW(handle, text.data() + at, static_cast<DWORD>(length), &written,
                           nullptr) ||
            written == 0) {
            lastError = GetLastError() ? GetLastError() : DWORD{ERROR_WRITE_FAULT};
            return;
        }
        at += written;
    }
}

void Writer::WriteBytes() {
    for (std::size_t at = 0; at < buffer.size();) {
        const std::size_t left = (std::min)(buffer.size() - at, std::size_t{1} << 20);
        DWORD written = 0;
        if (!WriteFile(handle, buffer.data() + at, static_cast<DWORD>(left), &written, nullptr) ||
            written == 0) {
            lastError = GetLastError() ? GetLastError() : DWORD{ERROR_WRITE_FAULT};
            return;
        }
        at += written;
    }
}

}  // namespace qmx
