#pragma once
// Builds CIFF files in memory: heaps of records, sound ones and broken ones.

#include <string_view>
#include <vector>

#include "support/tiff_builder.h"

namespace qmx::test {

// One heap; records are written in the order of the calls.
class CiffHeap {
public:
    explicit CiffHeap(Order order) : order_(order) {}

    CiffHeap& Data(std::uint32_t type, const Bytes& data);
    CiffHeap& Text(std::uint32_t type, std::string_view text) { return Data(type, FromText(text)); }
    CiffHeap& Words(std::uint32_t type, const std::vector<std::uint32_t>& words);
    CiffHeap& Longs(std::uint32_t type, const std::vector<std::uint32_t>& longs);
    CiffHeap& Inline(std::uint32_t type, const std::vector<std::uint32_t>& twoLongs) {
        return Raw(type | 0x4000, twoLongs[0], twoLongs[1]);
    }
    CiffHeap& Heap(std::uint32_t type, const CiffHeap& heap) { return Data(type, heap.Build()); }
    // An entry with this length and position.
    CiffHeap& Raw(std::uint32_t type, std::uint32_t length, std::uint32_t position);
    // Instead of the true one.
    CiffHeap& EntryCount(std::uint32_t stated) {
        statedCount_ = stated;
        return *this;
    }

    Order order() const { return order_; }
    Bytes Build() const;

private:
    Order order_;
    Bytes data_ = {};
    Bytes entries_ = {};
    std::uint32_t count_ = 0;
    std::int64_t statedCount_ = -1;
};

inline constexpr std::uint32_t kCiffHeaderBytes = 26;

// The make and the model, without which a file has no metadata, and a heap with them.
inline constexpr std::string_view kCiffNames = {"Canon\0Canon EOS 20D\0", 20};
CiffHeap NamedHeap(Order order = Order::kLittle);

// A file whose root heap is this one.
Bytes CiffFile(const CiffHeap& root);

// A file with every record that is read, in nested heaps.
Bytes FullCiff(Order order, const Bytes& preview);

}  // namespace qmx::test
