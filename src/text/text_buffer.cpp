#include "text/text_buffer.h"

namespace qmx {
namespace {

std::size_t DecimalDigits(std::uint64_t value) {
    std::size_t digits = 1;
    for (; value >= 10; value /= 10) ++digits;
    return digits;
}

}  // namespace

TextBuffer& TextBuffer::Append(const wchar_t* text) {
    if (text == nullptr) return *this;
    while (*text != 0 && length_ < limit_) text_[length_++] = *text++;
    text_[length_] = 0;
    return *this;
}

TextBuffer& TextBuffer::Append(wchar_t unit) {
    if (length_ == limit_) return *this;
    text_[length_++] = unit;
    text_[length_] = 0;
    return *this;
}

TextBuffer& TextBuffer::AppendAscii(std::string_view text) {
    for (const char c : text) Append(static_cast<wchar_t>(c));
    return *this;
}

TextBuffer& TextBuffer::AppendInteger(std::int32_t value, std::size_t minWidth) {
    const bool negative = value < 0;
    const auto bits = static_cast<std::uint32_t>(value);
    const std::uint32_t magnitude = negative ? 0u - bits : bits;
    for (std::size_t width = DecimalDigits(magnitude) + negative; width < minWidth; ++width) {
        Append(L' ');
    }
    if (negative) Append(L'-');
    return AppendUnsigned(magnitude);
}

TextBuffer& TextBuffer::AppendUnsigned(std::uint64_t value, std::size_t minDigits) {
    return AppendDigits(value, 10, minDigits);
}

TextBuffer& TextBuffer::AppendHex(std::uint32_t value, std::size_t minDigits) {
    return AppendDigits(value, 16, minDigits);
}

TextBuffer& TextBuffer::AppendDigits(std::uint64_t value, unsigned base, std::size_t minDigits) {
    wchar_t reversed[20];  // as many as 2^64 - 1 has
    std::size_t count = 0;
    do {
        reversed[count++] = L"0123456789ABCDEF"[value % base];
        value /= base;
    } while (value != 0);
    for (std::size_t digits = count; digits < minDigits; ++digits) Append(L'0');
    while (count > 0) Append(reversed[--count]);
    return *this;
}

void TextBuffer::Truncate(std::size_t length) {
    if (length >= length_) return;
    length_ = length;
    text_[length_] = 0;
}

}  // namespace qmx
