// A mutator that knows directory entries.  Changes of single bytes mostly break a directory; this
// one changes an entry's tag, type, count or offset as a whole and leaves the rest sound.  Entries
// are found by their look, so that it serves IFDs and MakerNotes in any container.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

constexpr std::size_t kEntryBytes = 12;
constexpr std::uint8_t kLastType = 12;

// Tags that lead somewhere else, or say what a picture is.
constexpr std::uint16_t kTags[] = {0x002E, 0x0100, 0x0101, 0x0102, 0x0103, 0x0106, 0x010F,
                                   0x0110, 0x0111, 0x0112, 0x0117, 0x011C, 0x014A, 0x0201,
                                   0x0202, 0x0212, 0x8649, 0x8769, 0x8825, 0x927C, 0xC634,
                                   0xC612, 0x0142, 0x0143, 0x0144, 0x0145, 0x8827, 0x9003};
constexpr std::uint32_t kCounts[] = {0,   1,   2,   3,   4,          5,          8,          64,
                                     255, 256, 512, 513, 0x20000000, 0x7FFFFFFF, 0x80000000, ~0u};

struct Input {
    std::uint8_t* data;
    std::size_t size;
    std::size_t maxSize;
    std::minstd_rand random;

    std::size_t Pick(std::size_t count) { return count == 0 ? 0 : random() % count; }
};

enum class Look { kNone, kLittle, kBig };

Look LookOf(const Input& input, std::size_t at) {
    if (input.size < kEntryBytes || at > input.size - kEntryBytes) return Look::kNone;
    const std::uint8_t low = input.data[at + 2];
    const std::uint8_t high = input.data[at + 3];
    if (high == 0 && low >= 1 && low <= kLastType) return Look::kLittle;
    return low == 0 && high >= 1 && high <= kLastType ? Look::kBig : Look::kNone;
}

// An entry with a like one before or behind it; the input's size when there is none.
std::size_t FindEntry(Input& input) {
    const std::size_t start = input.Pick(input.size);
    for (std::size_t i = 0; i < input.size; ++i) {
        const std::size_t at = (start + i) % input.size;
        const Look look = LookOf(input, at);
        if (look == Look::kNone) continue;
        if (LookOf(input, at + kEntryBytes) == look) return at;
        if (at >= kEntryBytes && LookOf(input, at - kEntryBytes) == look) return at;
    }
    return input.size;
}

// Where the entries begin that this one is one of.
std::size_t FirstOf(const Input& input, std::size_t at) {
    const Look look = LookOf(input, at);
    while (at >= kEntryBytes && LookOf(input, at - kEntryBytes) == look) at -= kEntryBytes;
    return at;
}

// `at` is an entry; its numbers stand in the entry's own order.
void Put(Input& input, std::size_t at, std::size_t from, std::size_t bytes, std::uint32_t value) {
    const bool isBigEndian = LookOf(input, at) == Look::kBig;
    for (std::size_t i = 0; i < bytes; ++i)
        input.data[at + from + (isBigEndian ? bytes - 1 - i : i)] =
            static_cast<std::uint8_t>(value >> 8 * i);
}

std::uint32_t SomeTag(Input& input) {
    switch (input.Pick(3)) {
        case 0: return kTags[input.Pick(std::size(kTags))];
        case 1: return static_cast<std::uint32_t>(input.Pick(0x400));
        default: return static_cast<std::uint32_t>(input.Pick(0x10000));
    }
}

// A place in the file: a directory, the end, or any.
std::uint32_t SomeOffset(Input& input) {
    std::size_t place = input.Pick(input.size + 1);
    const std::size_t other = FindEntry(input);
    if (input.Pick(2) == 0 && other < input.size) place = FirstOf(input, other) - 2;
    if (input.Pick(8) == 0) place = input.size - input.Pick(16);
    return static_cast<std::uint32_t>(place);
}

// One entry more, like this one, in a directory that counts it.
void Insert(Input& input, std::size_t at) {
    if (input.maxSize - input.size < kEntryBytes) return;
    std::memmove(input.data + at + kEntryBytes, input.data + at, input.size - at);
    input.size += kEntryBytes;
    const std::size_t first = FirstOf(input, at);
    if (first < 2) return;
    ++input.data[LookOf(input, at) == Look::kBig ? first - 1 : first - 2];
}

void Mutate(Input& input, std::size_t at) {
    switch (input.Pick(7)) {
        case 0: return Put(input, at, 0, 2, SomeTag(input));
        case 1: return Put(input, at, 4, 4, kCounts[input.Pick(std::size(kCounts))]);
        case 2: return Put(input, at, 8, 4, SomeOffset(input));
        case 3: return Put(input, at, 8, 4, kCounts[input.Pick(std::size(kCounts))]);
        case 4: {
            const std::size_t from = FindEntry(input);
            if (from < input.size) std::memmove(input.data + at, input.data + from, kEntryBytes);
            return;
        }
        case 5: return Insert(input, at);
        default: return Put(input, at, 2, 2, static_cast<std::uint32_t>(input.Pick(kLastType + 2)));
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    Input input = {data, size, maxSize, std::minstd_rand(seed)};
    if (input.Pick(3) == 0) return LLVMFuzzerMutate(data, size, maxSize);
    for (std::size_t changes = 1 + input.Pick(3); changes > 0; --changes) {
        const std::size_t at = FindEntry(input);
        if (at >= input.size) return LLVMFuzzerMutate(data, size, maxSize);
        Mutate(input, at);
    }
    return input.size;
}
