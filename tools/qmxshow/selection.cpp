#include "selection.h"

#include <cmath>
#include <iterator>

#include "paths.h"
#include "utf8.h"

namespace qmx {
namespace {

struct KeyName {
    std::wstring_view name;
    SortKey key;
};

constexpr KeyName kKeyNames[] = {
    {L"name", SortKey::kName},   {L"date", SortKey::kDate}, {L"maker", SortKey::kMaker},
    {L"model", SortKey::kModel}, {L"iso", SortKey::kIso},   {L"focal", SortKey::kFocal},
};

template <std::size_t N>
SortValue TextValue(const WCHAR (&text)[N]) {
    const std::wstring_view bounded = BoundedText(text, N);
    return {bounded.empty(), LowerCase(bounded), 0};
}

// Digits of a fixed count at `at`; false when there are fewer.
bool TakeNumber(std::wstring_view text, std::size_t at, std::size_t digits, unsigned& number) {
    if (at + digits > text.size()) return false;
    number = 0;
    for (std::size_t i = at; i < at + digits; ++i) {
        if (text[i] < L'0' || text[i] > L'9') return false;
        number = number * 10 + static_cast<unsigned>(text[i] - L'0');
    }
    return true;
}

std::uint64_t DayKey(unsigned year, unsigned month, unsigned day) {
    return ((std::uint64_t{year} * 100 + month) * 100 + day) * 1'000'000;
}

}  // namespace

bool Filter::Matches(const Photo& photo) const {
    const std::wstring_view make = BoundedText(photo.info.makeText, std::size(photo.info.makeText));
    if (!maker.empty() && LowerCase(make).find(maker) == std::wstring::npos) return false;
    if (!HasDates()) return true;
    const std::uint64_t taken = TimeKey(photo.info.captureTime);
    return taken != 0 && taken >= since && taken <= until;
}

std::uint64_t TimeKey(const SYSTEMTIME& time) {
    return DayKey(time.wYear, time.wMonth, time.wDay) + time.wHour * 10'000u + time.wMinute * 100u +
           time.wSecond;
}

bool ParseDate(std::wstring_view text, std::uint64_t& first, std::uint64_t& last) {
    unsigned year = 0, month = 1, day = 1;
    const bool hasMonth = text.size() > 4, hasDay = text.size() > 7;
    if ((text.size() != 4 && text.size() != 7 && text.size() != 10) ||
        !TakeNumber(text, 0, 4, year) || (hasMonth && !TakeNumber(text, 5, 2, month)) ||
        (hasDay && !TakeNumber(text, 8, 2, day)) || (hasMonth && text[4] != L'-') ||
        (hasDay && text[7] != L'-') || month < 1 || month > 12 || day < 1 || day > 31) {
        return false;
    }
    first = DayKey(year, month, day);
    last = DayKey(year, hasMonth ? month : 12, hasDay ? day : 31) + 235'959;
    return true;
}

bool ParseSortKey(std::wstring_view name, SortKey& key) {
    for (const KeyName& row : kKeyNames) {
        if (name != row.name) continue;
        key = row.key;
        return true;
    }
    return false;
}

SortValue SortValueOf(const Photo& photo, const std::wstring& name, SortKey key) {
    const InfoRequest& info = photo.info;
    if (key == SortKey::kName) return {false, LowerCase(FileName(name)), 0};
    if (!photo.error.empty()) return {true, {}, 0};
    switch (key) {
        case SortKey::kDate: {
            const std::uint64_t taken = TimeKey(info.captureTime);
            return {taken == 0, {}, static_cast<double>(taken)};
        }
        case SortKey::kMaker: return TextValue(info.makeText);
        case SortKey::kModel: return TextValue(info.modelText);
        case SortKey::kIso:
            return {info.isoSpeed == QMXEXIF_INT_UNSET, {}, static_cast<double>(info.isoSpeed)};
        case SortKey::kFocal: {
            const float focal = info.focalLength;
            return {focal == QMXEXIF_FLOAT_UNSET || !std::isfinite(focal), {}, focal};
        }
        default: return {};
    }
}

bool ComesBefore(const SortValue& left, const SortValue& right) {
    if (left.isMissing || right.isMissing) return !left.isMissing && right.isMissing;
    return left.text != right.text ? left.text < right.text : left.number < right.number;
}

}  // namespace qmx
