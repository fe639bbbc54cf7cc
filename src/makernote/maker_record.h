#pragma once
// The maker's own record in ImageInfo: every decoder lays its structure over `makerFields`, since
// one file has one maker.

#include <cstring>
#include <new>
#include <type_traits>

#include "parse/core/image_info.h"

namespace qmx {

template <class Record>
inline constexpr bool kFitsMakerFields = std::is_trivially_copyable_v<Record> &&
                                         sizeof(Record) <= kMakerFieldsSize && alignof(Record) <= 4;

// The maker area with a fresh record in it, each field at the value that its declaration gives.
template <class Record>
Record& ResetMakerRecord(ImageInfo& info) {
    static_assert(kFitsMakerFields<Record>);
    return *::new (static_cast<void*>(info.makerFields)) Record{};
}

// The record that the maker's decoder left there.
template <class Record>
const Record& MakerRecord(const ImageInfo& info) {
    static_assert(kFitsMakerFields<Record>);
    return *std::launder(reinterpret_cast<const Record*>(info.makerFields));
}

template <class Record>
Record& MakerRecord(ImageInfo& info) {
    static_assert(kFitsMakerFields<Record>);
    return *std::launder(reinterpret_cast<Record*>(info.makerFields));
}

}  // namespace qmx
