#pragma once
// TextBuffer: composes UTF-16 text in a caller's array.  What does not fit is cut, the text is
// terminated after every step, nothing is allocated.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "parse/core/win32.h"

namespace qmx {

// Room for the text of one value, terminator included.
inline constexpr std::size_t kValueCapacity = 260;

class TextBuffer {
public:
    // Starts with an empty text.  `storage` has room for the terminator at least.
    explicit TextBuffer(std::span<wchar_t> storage)
        : text_(storage.data()), limit_(storage.size() - 1) {
        text_[0] = 0;
    }
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    const wchar_t* Text() const { return text_; }
    std::size_t Length() const { return length_; }
    bool IsEmpty() const { return length_ == 0; }

    // Null appends nothing.
    TextBuffer& Append(const wchar_t* text);
    TextBuffer& Append(wchar_t unit);

    // One unit per byte; for bytes below 0x80.
    TextBuffer& AppendAscii(std::string_view text);

    // Decimal, filled up with blanks on the left to `minWidth`, the sign counted.
    TextBuffer& AppendInteger(std::int32_t value, std::size_t minWidth = 1);

    // Decimal, filled up with zeros on the left.
    TextBuffer& AppendUnsigned(std::uint64_t value, std::size_t minDigits = 1);

    // Upper-case hexadecimal, filled up with zeros on the left.
    TextBuffer& AppendHex(std::uint32_t value, std::size_t minDigits = 1);

    // Cuts the text back to `length` units.
    void Truncate(std::size_t length);

private:
    TextBuffer& AppendDigits(std::uint64_t value, unsigned base, std::size_t minDigits);

    wchar_t* text_;
    std::size_t limit_;  // units without the terminator
    std::size_t length_ = 0;
};

}  // namespace qmx
