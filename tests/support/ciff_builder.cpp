#include "support/ciff_builder.h"

namespace qmx::test {
namespace {

std::uint32_t SizeOf(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

// An array of words that are zero but for some.
std::vector<std::uint32_t> Sparse(std::size_t count,
                                  const std::vector<std::pair<std::size_t, std::uint32_t>>& words) {
    std::vector<std::uint32_t> array(count);
    for (const auto& [index, word] : words) array[index] = word;
    return array;
}

}  // namespace

CiffHeap& CiffHeap::Data(std::uint32_t type, const Bytes& data) {
    const std::uint32_t position = SizeOf(data_);
    data_ = std::move(data_) + data;
    return Raw(type, SizeOf(data), position);
}

CiffHeap& CiffHeap::Words(std::uint32_t type, const std::vector<std::uint32_t>& words) {
    ByteWriter writer(order_);
    for (const std::uint32_t word : words) writer.U16(word);
    return Data(type, writer.bytes);
}

CiffHeap& CiffHeap::Longs(std::uint32_t type, const std::vector<std::uint32_t>& longs) {
    ByteWriter writer(order_);
    for (const std::uint32_t value : longs) writer.U32(value);
    return Data(type, writer.bytes);
}

CiffHeap& CiffHeap::Raw(std::uint32_t type, std::uint32_t length, std::uint32_t position) {
    const Bytes entry = ByteWriter(order_).U16(type).U32(length).U32(position).bytes;
    entries_ = std::move(entries_) + entry;
    ++count_;
    return *this;
}

Bytes CiffHeap::Build() const {
    const auto count = statedCount_ < 0 ? count_ : static_cast<std::uint32_t>(statedCount_);
    return ByteWriter(order_).Raw(data_).U16(count).Raw(entries_).U32(SizeOf(data_)).bytes;
}

CiffHeap NamedHeap(Order order) {
    CiffHeap heap(order);
    heap.Text(0x080A, kCiffNames);
    return heap;
}

Bytes CiffFile(const CiffHeap& root) {
    ByteWriter file(root.order());
    file.Raw(FromText(root.order() == Order::kLittle ? "II" : "MM")).U32(kCiffHeaderBytes);
    file.Raw(FromText("HEAPCCDR")).U32(0x00010002).Pad(kCiffHeaderBytes);
    return file.Raw(root.Build()).bytes;
}

Bytes FullCiff(Order order, const Bytes& preview) {
    using namespace std::string_view_literals;
    CiffHeap camera = NamedHeap(order);
    camera.Text(0x0810, "Owner\0"sv).Text(0x080B, "Firmware 1.1.1\0"sv);
    camera.Inline(0x180B, {560018150, 0});
    CiffHeap shot(order);
    shot.Words(0x1029, {1, 24, 914, 610})
        .Words(0x102A, Sparse(33, {{2, 160}, {4, 117}, {5, 189}, {6, 0xFFF4}, {9, 3}}))
        .Words(0x102D, Sparse(48, {{3, 4}, {22, 61}, {23, 55}, {28, 133}}))
        .Words(0x1031, {34, 3152, 2068})
        .Words(0x1038, Sparse(27, {{2, 3504}, {22, 0x0312}, {26, 0x0010}}))
        .Words(0x1093, Sparse(16, {{1, 0x0801}, {2, 0x0002}, {8, 1}}))
        .Inline(0x10AE, {order == Order::kLittle ? 5200u : 5200u << 16, 0});
    CiffHeap properties(order);
    properties.Longs(0x1810, {3504, 2336, 0, 0, 8, 24, 257}).Longs(0x180E, {1068485966, 0, 0});
    properties.Inline(0x1817, {1161602, 0}).Text(0x0815, "CRW:EOS 20D CMOS RAW\0"sv);
    properties.Heap(0x2807, camera).Heap(0x300B, shot);
    CiffHeap root(order);
    root.Data(0x2005, Bytes(32, 7)).Data(0x2007, preview).Heap(0x300A, properties);
    return CiffFile(root);
}

}  // namespace qmx::test
