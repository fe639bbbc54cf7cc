#pragma once
// Every exported function as one kind of call, and all that it may write.  Allocates nothing, so
// that whatever is allocated meanwhile is the library's.

#include <algorithm>
#include <span>

#include "support/api.h"

namespace qmx::test {

// A digest that takes 8 bytes at a time.
class Digest {
public:
    void Add(const void* data, std::size_t size);
    void Add(std::uint64_t number);
    void AddText(const wchar_t* text);
    std::uint64_t value = 0x9E3779B97F4A7C15u;
};

// A buffer of which nothing may be written beyond `Size`.
template <std::size_t Size>
class GuardedText {
public:
    GuardedText() { std::fill_n(text_, kLast, kFill); }
    wchar_t* Get() { return text_; }
    const wchar_t* Get() const { return text_; }
    bool IsUntouchedFrom(std::size_t first) const {
        return std::all_of(text_ + first, text_ + kLast, [](wchar_t c) { return c == kFill; });
    }
    bool IsWhole() const { return IsUntouchedFrom(Size); }
    bool IsUntouched() const { return IsUntouchedFrom(0); }

private:
    static constexpr wchar_t kFill = 0xA5A5;
    static constexpr std::size_t kLast = Size + 64;
    wchar_t text_[kLast + 1] = {};
};

struct Caller {
    static constexpr UINT32 kNoOrientation = 0xFEDCBA98;

    explicit Caller(IStream* given);
    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

    IStream* const stream;
    GuardedText<QMXEXIF_TEXT_BUFFER_LENGTH> text;
    GuardedText<40> date;
    GuardedText<5> cutDate;
    GuardedText<1024> longText;
    GuardedText<257> shortText;
    InfoRequest record;  // with the last two
    UINT32 orientation = kNoOrientation;
    Digest list;
    UINT32 listed = 0;
    bool isListSound = true;

    // A digest of all of it but the stream.
    std::uint64_t Written() const;
    bool KeptBounds() const;         // of every text
    bool HasUntouchedTexts() const;  // dates apart
    bool KeptBasicBounds() const;    // of the record, when it is a basic one
};

struct Export {
    enum Traits : unsigned {
        kList = 1,      // fails with another result than 0
        kMetadata = 2,  // succeeds where the list does
        kStream = 4,
        kBasic = 8,  // writes 164 bytes of the record
    };
    const char* name;
    unsigned traits;
    UINT32 (*call)(const wchar_t* path, Caller& caller);

    bool Has(Traits trait) const { return (traits & trait) != 0; }
    UINT32 Failure() const { return Has(kList) ? 0xFFFFFFFF : 0; }
};
std::span<const Export> Exports();

}  // namespace qmx::test
