#include "utf8.h"

#include <windows.h>

namespace qmx {
namespace {

struct Range {
    char32_t first, last;
};

// Wide and fullwidth blocks of Unicode's East Asian Width property.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},
    {0x4E00, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F},
    {0x1F900, 0x1F9FF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
};

// Combining marks and invisible characters.  Looked up first: some lie inside wide blocks.
constexpr Range kZero[] = {
    {0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0x3099, 0x309A}, {0xFE00, 0xFE0F},
};

template <std::size_t N>
bool Contains(const Range (&ranges)[N], char32_t c) {
    for (const Range& range : ranges) {
        if (c >= range.first && c <= range.last) return true;
    }
    return false;
}

bool IsControl(wchar_t c) {
    // U+2028 to U+202E: line separators and direction overrides.
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || (c >= 0x2028 && c <= 0x202E);
}

}  // namespace

char32_t NextCodePoint(std::wstring_view text, std::size_t& at) {
    const char32_t high = text[at++];
    if (high < 0xD800 || high > 0xDBFF || at == text.size()) return high;
    const char32_t low = text[at];
    if (low < 0xDC00 || low > 0xDFFF) return high;
    ++at;
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void AppendUtf8(std::string& out, char32_t c) {
    if (IsSurrogate(c)) c = 0xFFFD;
    const auto tail = [&](unsigned shift) {
        out.push_back(static_cast<char>(0x80 | (c >> shift & 0x3F)));
    };
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | c >> 12));
        tail(6);
        tail(0);
    } else {
        out.push_back(static_cast<char>(0xF0 | c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string ToUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) AppendUtf8(out, NextCodePoint(text, at));
    return out;
}

std::wstring ToWide(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    std::wstring out(utf8.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, out.data(), bytes);
    out.resize(static_cast<std::size_t>(length));
    return out;
}

std::size_t TextColumns(std::wstring_view text) {
    std::size_t columns = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCodePoint(text, at);
        if (Contains(kZero, c)) continue;
        columns += Contains(kWide, c) ? 2 : 1;
    }
    return columns;
}

std::wstring OneLine(std::wstring_view text) {
    std::wstring out(text);
    for (wchar_t& c : out) {
        if (IsControl(c)) c = L' ';
    }
    return out;
}

std::wstring_view Trim(std::wstring_view text) {
    constexpr std::wstring_view kBlank = L" \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlank);
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

std::wstring_view TakeLine(std::wstring_view& rest) {
    const std::size_t end = rest.find_first_of(L"\r\n");
    const std::wstring_view line = rest.substr(0, end);
    if (end == std::wstring_view::npos) {
        rest = {};
        return line;
    }
    const bool pair = rest[end] == L'\r' && end + 1 < rest.size() && rest[end + 1] == L'\n';
    rest.remove_prefix(end + (pair ? 2 : 1));
    return line;
}

std::wstring_view BoundedText(const wchar_t* text, std::size_t capacity) {
    std::size_t length = 0;
    while (length < capacity && text[length] != 0) ++length;
    return {text, length};
}

}  // namespace qmx
