// Which photos are shown, and in which order.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "photo.h"

namespace qmx {

struct Filter {
    std::wstring maker;  // a part of the maker's name, in lower case
    std::uint64_t since = 0;
    std::uint64_t until = ~std::uint64_t{0};

    bool Matches(const Photo& photo) const;
    bool HasDates() const { return since != 0 || until != ~std::uint64_t{0}; }
};

// Comparable times: the digits YYYYMMDDhhmmss as a number; 0 when the photo has no date.
std::uint64_t TimeKey(const SYSTEMTIME& time);

// The first and the last moment of "YYYY", "YYYY-MM" or "YYYY-MM-DD"; false for anything else.
bool ParseDate(std::wstring_view text, std::uint64_t& first, std::uint64_t& last);

enum class SortKey { kNone, kName, kDate, kMaker, kModel, kIso, kFocal };

// False for a name that is no key.
bool ParseSortKey(std::wstring_view name, SortKey& key);

// What a photo is sorted by; photos that do not say come last.
struct SortValue {
    bool isMissing = false;
    std::wstring text;
    double number = 0;
};

SortValue SortValueOf(const Photo& photo, const std::wstring& name, SortKey key);
bool ComesBefore(const SortValue& left, const SortValue& right);

}  // namespace qmx
