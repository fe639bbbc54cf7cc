#include "hostile/structure.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace qmx::hostile {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kMaxSites = 6000;
constexpr std::uint32_t kMaxEntries = 400;

constexpr std::uint32_t kTypeBytes[] = {1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

bool IsIn(std::uint32_t tag, std::initializer_list<std::uint32_t> tags) {
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

class Finder {
public:
    explicit Finder(const Bytes& file) : file_(file) {}

    Structure Find() {
        if (Has(0, "FUJIFILM"sv)) Raf();
        if (Has(0, "\0MRM"sv)) Mrw();
        if (Has(0, "FOVb"sv)) X3f();
        if (Has(6, "HEAPCCDR"sv)) Ciff();
        if (Has(0, "\xFF\xD8"sv)) Jpeg(0);
        if (Has(0, "II"sv) || Has(0, "MM"sv)) Tiff(0);
        if (found_.blocks.empty()) Note(0, 0);
        if (found_.blocks.empty()) Mark(0, Size());
        return std::move(found_);
    }

private:
    std::uint32_t Size() const { return static_cast<std::uint32_t>(file_.size()); }
    bool Has(std::size_t position, std::string_view text) const {
        return position <= file_.size() && file_.size() - position >= text.size() &&
               std::equal(text.begin(), text.end(),
                          file_.begin() + static_cast<std::ptrdiff_t>(position),
                          [](char c, std::uint8_t b) { return static_cast<std::uint8_t>(c) == b; });
    }
    std::uint32_t Number(std::uint32_t position, std::uint8_t size, Order order) const {
        return ReadNumber(file_, position, size, order);
    }
    // Notes a number and returns it.
    std::uint32_t Take(std::uint32_t position, std::uint8_t size, Role role, Order order,
                       std::uint32_t base = 0) {
        const bool inside = position < Size() && Size() - position >= size;
        if (inside && found_.sites.size() < kMaxSites)
            found_.sites.push_back({position, size, role, order, base});
        return Number(position, size, order);
    }
    void Mark(std::uint32_t position, std::uint32_t length) {
        if (position < Size() && length != 0 && found_.blocks.size() < kMaxSites)
            found_.blocks.push_back({position, std::min(length, Size() - position)});
    }
    // A piece is looked at once, however many ways lead to it.
    bool Enter(std::uint32_t position) {
        return position < Size() && found_.sites.size() < kMaxSites &&
               entered_.insert(position).second;
    }

    void Jpeg(std::uint32_t start) {
        if (!Enter(start)) return;
        for (std::uint32_t at = start + 2; at + 4 <= Size() && file_[at] == 0xFF;) {
            const std::uint8_t marker = file_[at + 1];
            if (marker == 0xD9) return;
            Take(at + 1, 1, Role::kNumber, Order::kBig);
            const std::uint32_t length = Take(at + 2, 2, Role::kCount, Order::kBig);
            Mark(at, length + 2);
            if (Has(at + 4, "Exif\0\0"sv)) Tiff(at + 10);
            const bool isApplication = marker >= 0xE0 && marker <= 0xEF;
            for (std::uint32_t i = 0; !isApplication && i < std::min(length, 34u); ++i)
                Take(at + 4 + i, 1, Role::kNumber, Order::kBig);
            if (marker == 0xDA) return;
            at += 2 + std::max(length, 2u);
        }
    }

    void Tiff(std::uint32_t base) {
        if (!Enter(base)) return;
        const Order order = Has(base, "MM"sv) ? Order::kBig : Order::kLittle;
        Take(base, 2, Role::kByteOrder, order);
        Take(base + 2, 2, Role::kNumber, order);
        Mark(base, 8);
        const std::uint32_t first = Take(base + 4, 4, Role::kOffset, order, base);
        for (std::uint32_t at = first; at != 0;) at = Ifd(base + at, base, order);
    }

    // Returns the offset of the next directory.
    std::uint32_t Ifd(std::uint32_t position, std::uint32_t base, Order order) {
        if (!Enter(position)) return 0;
        const std::uint32_t count = Take(position, 2, Role::kCount, order);
        if (count > kMaxEntries) return 0;
        found_.directories.push_back({position, 2, position + 2, 12, count, order});
        Mark(position, 2 + count * 12 + 4);
        for (std::uint32_t i = 0; i < count; ++i) Entry(position + 2 + i * 12, base, order);
        return Take(position + 2 + count * 12, 4, Role::kOffset, order, base);
    }

    void Entry(std::uint32_t position, std::uint32_t base, Order order) {
        const std::uint32_t tag = Take(position, 2, Role::kTag, order);
        const std::uint32_t type = Take(position + 2, 2, Role::kType, order);
        const std::uint32_t count = Take(position + 4, 4, Role::kCount, order);
        const std::uint64_t length =
            std::uint64_t{count} * (type < std::size(kTypeBytes) ? kTypeBytes[type] : 1);
        const bool isFar = length > 4;
        const bool leads = isFar || IsIn(tag, {0x0111, 0x0144, 0x014A, 0x0201, 0x8769, 0x8825});
        const std::uint32_t value =
            Take(position + 8, 4, leads ? Role::kOffset : Role::kNumber, order, base);
        const std::uint32_t at = isFar ? base + value : position + 8;
        if (isFar) {
            Mark(at, static_cast<std::uint32_t>(std::min<std::uint64_t>(length, Size())));
            const std::uint8_t step = type == 3 || type == 8 ? 2 : type == 1 || type == 2 ? 1 : 4;
            for (std::uint32_t i = 0; i < 8 && i * step < length; ++i)
                Take(at + i * step, step, Role::kNumber, order);
        }
        if (tag == 0x927C || tag == 0x002E) Note(at, base);
        for (std::uint32_t i = 0; i < std::min(count, 8u); ++i) {
            const std::uint32_t target = base + Number(at + i * 4, 4, order);
            if (IsIn(tag, {0x014A, 0x8769, 0x8825, 0xA005})) Ifd(target, base, order);
            if (IsIn(tag, {0x0111, 0x0144, 0x0201}) && Has(target, "\xFF\xD8"sv)) Jpeg(target);
        }
    }

    // A directory stands somewhere near the front of a MakerNote, in an order of its own.
    void Note(std::uint32_t position, std::uint32_t base) {
        if (Has(position, "\xFF\xD8"sv)) return Jpeg(position);
        for (std::uint32_t i = 0; i < std::min(40u, Size()); ++i) {
            const std::uint32_t at = position + i;
            if (Has(at, "II*\0"sv) || Has(at, "MM\0*"sv)) return Tiff(at);
            if (Has(at, "II"sv) || Has(at, "MM"sv)) Take(at, 2, Role::kByteOrder, Order::kBig);
            for (const Order order : {Order::kLittle, Order::kBig}) {
                const std::uint32_t count = Number(at, 2, order);
                const std::uint32_t type = Number(at + 4, 2, order);
                const std::uint32_t items = Number(at + 6, 4, order);
                const bool looksRight = count >= 1 && count < kMaxEntries && type >= 1 &&
                                        type <= 12 && items >= 1 && items < 0x10000;
                if (!looksRight) continue;
                Ifd(at, base, order);
                return;
            }
        }
    }

    void Heap(std::uint32_t start, std::uint32_t length, Order order, int depth) {
        if (length < 4 || start >= Size() || length > Size() - start || depth > 8) return;
        const std::uint32_t pointer = start + length - 4;
        const std::uint32_t directory = start + Take(pointer, 4, Role::kOffset, order, start);
        if (!Enter(directory)) return;
        const std::uint32_t count = Take(directory, 2, Role::kCount, order);
        if (count > kMaxEntries) return;
        found_.directories.push_back({directory, 2, directory + 2, 10, count, order});
        Mark(directory, 2 + count * 10);
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t entry = directory + 2 + i * 10;
            const std::uint32_t type = Take(entry, 2, Role::kTag, order);
            const std::uint32_t size = Take(entry + 2, 4, Role::kCount, order);
            const std::uint32_t at = start + Take(entry + 6, 4, Role::kOffset, order, start);
            if ((type & 0x4000) != 0) continue;
            Mark(at, size);
            if (IsIn(type >> 8, {0x28, 0x30})) Heap(at, size, order, depth + 1);
            for (std::uint32_t word = 0; word < std::min(size / 2, 40u); ++word)
                Take(at + word * 2, 2, Role::kNumber, order);
        }
    }

    void Ciff() {
        const Order order = Has(0, "MM"sv) ? Order::kBig : Order::kLittle;
        Take(0, 2, Role::kByteOrder, order);
        const std::uint32_t header = Take(2, 4, Role::kCount, order);
        Mark(0, header);
        if (header < Size()) Heap(header, Size() - header, order, 0);
    }

    void Mrw() {
        Take(4, 4, Role::kCount, Order::kBig);
        for (std::uint32_t at = 8; at + 8 <= Size();) {
            Take(at, 4, Role::kTag, Order::kBig);
            const std::uint32_t length = Take(at + 4, 4, Role::kCount, Order::kBig);
            if (length > Size()) return;
            Mark(at, length + 8);
            if (Has(at, "\0TTW"sv))
                Tiff(at + 8);
            else
                for (std::uint32_t i = 0; i < std::min(length / 2, 40u); ++i)
                    Take(at + 8 + i * 2, 2, Role::kNumber, Order::kBig);
            at += length + 8;
        }
    }

    void Raf() {
        Mark(0, 108);
        for (std::uint32_t at = 84; at < 108; at += 8) {
            const std::uint32_t target = Take(at, 4, Role::kOffset, Order::kBig);
            Mark(target, Take(at + 4, 4, Role::kCount, Order::kBig));
            if (Has(target, "\xFF\xD8"sv)) Jpeg(target);
        }
    }

    void X3f() {
        constexpr Order kOrder = Order::kLittle;
        if (Size() < 40) return;
        for (std::uint32_t at = 4; at < 40; at += 4) Take(at, 4, Role::kNumber, kOrder);
        for (std::uint32_t at = 40; at < std::min(232u, Size()); ++at)
            Take(at, 1, Role::kNumber, kOrder);
        const std::uint32_t directory = Take(Size() - 4, 4, Role::kOffset, kOrder);
        Take(directory + 4, 4, Role::kNumber, kOrder);
        const std::uint32_t count = Take(directory + 8, 4, Role::kCount, kOrder);
        if (count > kMaxEntries || directory >= Size()) return;
        found_.directories.push_back({directory + 8, 4, directory + 12, 12, count, kOrder});
        Mark(directory, 12 + count * 12);
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t entry = directory + 12 + i * 12;
            const std::uint32_t section = Take(entry, 4, Role::kOffset, kOrder);
            Mark(section, Take(entry + 4, 4, Role::kCount, kOrder));
            Take(entry + 8, 4, Role::kTag, kOrder);
            // Image: type, format, columns, rows, bytes in a row; list: count, format, length,
            // offsets of names and values; then a code table or texts.
            for (std::uint32_t word = 1; word < 40; ++word)
                Take(section + word * 4, 4, Role::kNumber, kOrder);
            if (Has(section + 28, "\xFF\xD8"sv)) Jpeg(section + 28);
        }
    }

    const Bytes& file_;
    Structure found_;
    std::set<std::uint32_t> entered_;
};

}  // namespace

std::uint32_t ReadNumber(const Bytes& file, std::size_t position, std::size_t size, Order order) {
    if (position > file.size() || file.size() - position < size) return 0;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8 | file[position + (order == Order::kBig ? i : size - 1 - i)];
    return value;
}

void WriteNumber(Bytes& file, std::size_t position, std::size_t size, Order order,
                 std::uint32_t value) {
    if (position > file.size() || file.size() - position < size) return;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t shift = 8 * (order == Order::kBig ? size - 1 - i : i);
        file[position + i] = static_cast<std::uint8_t>(value >> shift);
    }
}

Structure FindStructure(const Bytes& file) { return Finder(file).Find(); }

}  // namespace qmx::hostile
