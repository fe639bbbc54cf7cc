#pragma once
// UTF-16 text as UTF-8, so that tests compare and print std::string.  Works with 2-byte wchar_t
// wherever it comes from; a lone surrogate becomes U+FFFD.

#include <cstdint>
#include <string>

namespace qmx::test {

inline void AppendUtf8(std::string& out, std::uint32_t point) {
    const auto tail = [&](unsigned shift) {
        out += static_cast<char>(0x80 | (point >> shift & 0x3F));
    };
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0 | point >> 6);
        tail(0);
    } else if (point < 0x10000) {
        out += static_cast<char>(0xE0 | point >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | point >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

inline std::string Utf8(const wchar_t* text) {
    std::string out;
    for (; *text != 0; ++text) {
        const std::uint32_t unit = static_cast<std::uint16_t>(*text);
        const std::uint32_t next = static_cast<std::uint16_t>(text[1]);
        if (unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            ++text;
        } else {
            AppendUtf8(out, unit >= 0xD800 && unit < 0xE000 ? 0xFFFD : unit);
        }
    }
    return out;
}

}  // namespace qmx::test
