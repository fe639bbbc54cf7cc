#include "parse/core/image_records.h"

#include <algorithm>
#include <new>

namespace qmx {

std::size_t ImageRecordList::Add() {
    if (count_ == capacity_) {
        if (count_ >= kMaxCount) return kNone;
        const std::size_t wanted = std::min(capacity_ * 2, kMaxCount);
        auto* grown = new (std::nothrow) ImageRecord[wanted];
        if (grown == nullptr) return kNone;
        std::copy_n(records_, count_, grown);
        if (records_ != usual_) delete[] records_;
        records_ = grown;
        capacity_ = wanted;
    }
    records_[count_] = ImageRecord{};
    records_[count_].orientation = kUpright;
    return count_++;
}

void ImageRecordList::Remove(std::size_t index) {
    std::copy(records_ + index + 1, records_ + count_, records_ + index);
    --count_;
}

void ImageRecordList::Clear() {
    if (records_ != usual_) delete[] records_;
    records_ = usual_;
    count_ = 0;
    capacity_ = kUsualCount;
}

}  // namespace qmx
