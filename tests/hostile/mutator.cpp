#include "hostile/mutator.h"

#include <algorithm>

#include "hostile/random.h"
#include "support/raw_seeds.h"
#include "support/seed_files.h"

namespace qmx::hostile {
namespace {

// Tags that lead somewhere or decide how something is read.
constexpr std::uint16_t kTags[] = {
    0x0001, 0x0002, 0x0003, 0x0004, 0x000D, 0x000F, 0x0010, 0x0011, 0x001D, 0x002E, 0x0081, 0x0088,
    0x0097, 0x0098, 0x00A7, 0x00A8, 0x0100, 0x0101, 0x0102, 0x0103, 0x0106, 0x010F, 0x0110, 0x0111,
    0x0112, 0x0114, 0x0115, 0x0116, 0x0117, 0x011C, 0x0142, 0x0143, 0x0144, 0x0145, 0x014A, 0x0201,
    0x0202, 0x0211, 0x0212, 0x080A, 0x0E00, 0x102D, 0x1810, 0x2007, 0x2010, 0x2011, 0x2020, 0x2050,
    0x280A, 0x300A, 0x3000, 0x3011, 0x7000, 0x829A, 0x8649, 0x8769, 0x8825, 0x9003, 0x927C, 0xA005,
    0xB027, 0xC612, 0xC617, 0xC61A, 0xC621, 0xC628, 0xC634, 0xFFFF};

class Mutation {
public:
    Mutation(const SoundFile& file, const SoundFile& other, std::uint64_t number)
        : file_(file), other_(other), bytes_(file.bytes), random_(number) {}

    Bytes Run() {
        // One draw to a statement throughout: compilers differ in the order within one.
        const std::size_t some = random_.Below(4);
        const std::size_t more = random_.Below(6);
        for (std::size_t i = 0; i <= std::min(some, more); ++i) AddFault();
        if (random_.Below(5) == 0) Reshape();  // last: it moves what the structure knows
        return std::move(bytes_);
    }

private:
    std::uint32_t Size() const { return static_cast<std::uint32_t>(bytes_.size()); }

    void AddFault() {
        const std::size_t kind = random_.Below(16);
        if (kind < 9)
            AlterSite();
        else if (kind < 12)
            AlterDirectory();
        else if (kind < 13)
            CopyPiece(bytes_, file_.structure);
        else if (kind < 14)
            CopyPiece(Bytes(other_.bytes), other_.structure);
        else
            AlterBytes();
    }

    void AlterSite() {
        const auto& sites = file_.structure.sites;
        if (sites.empty()) return AlterBytes();
        const Site& site = random_.Of(sites);
        const std::uint32_t before = ReadNumber(bytes_, site.position, site.size, site.order);
        WriteNumber(bytes_, site.position, site.size, site.order, Replacement(site, before));
    }

    std::uint32_t Replacement(const Site& site, std::uint32_t before) {
        switch (site.role) {
            case Role::kTag: return random_.Below(4) == 0 ? OtherTag(site) : random_.Of(kTags);
            case Role::kType: return static_cast<std::uint32_t>(random_.Below(15));
            case Role::kByteOrder: {
                constexpr std::uint32_t kOrders[] = {0x4949, 0x4D4D, 0x494D, 0};
                return random_.Of(kOrders);
            }
            case Role::kOffset:
                return random_.Below(4) == 0 ? OddNumber(before) : Somewhere(site) - site.base;
            default: return OddNumber(before);
        }
    }

    std::uint32_t OtherTag(const Site& site) {
        const Site& donor = random_.Of(file_.structure.sites);
        return ReadNumber(bytes_, donor.position, site.size, donor.order);
    }

    // A position: of another structure, of the offset itself, of the end.
    std::uint32_t Somewhere(const Site& site) {
        const Structure& structure = file_.structure;
        switch (random_.Below(6)) {
            case 0: return site.position - static_cast<std::uint32_t>(random_.Below(14));
            case 1: return Size() - static_cast<std::uint32_t>(random_.Below(16));
            case 2:
                if (!structure.directories.empty())
                    return random_.Of(structure.directories).countPosition;
                [[fallthrough]];
            case 3: return random_.Of(structure.sites).position;
            default: return random_.Of(structure.blocks).position;
        }
    }

    std::uint32_t OddNumber(std::uint32_t before) {
        const auto small = static_cast<std::uint32_t>(random_.Below(9));
        switch (random_.Below(14)) {
            case 0: return 0;
            case 1: return 1;
            case 2: return 0xFFFFFFFF;
            case 3: return 0x7FFFFFFF;
            case 4: return 0x80000000;
            case 5: return before + small;
            case 6: return before - small;
            case 7: return before * 2;
            case 8: return before / 2;
            case 9: return Size() - small;
            case 10: return 1u << random_.Below(32);
            case 11: return before ^ 1u << random_.Below(32);
            case 12: return static_cast<std::uint32_t>(random_.Below(300));
            default: return static_cast<std::uint32_t>(random_.Next());
        }
    }

    void AlterDirectory() {
        const auto& directories = file_.structure.directories;
        if (directories.empty()) return CopyPiece(bytes_, file_.structure);
        const Directory& directory = random_.Of(directories);
        const std::uint32_t a = EntryOf(directory);
        const std::uint32_t b = EntryOf(directory);
        const std::uint32_t size = directory.entryBytes;
        if (a > Size() || b > Size() || Size() - std::max(a, b) < size) return;
        const auto at = [&](std::uint32_t position) { return bytes_.begin() + position; };
        switch (random_.Below(4)) {
            case 0:
                if (a != b) std::swap_ranges(at(a), at(a + size), at(b));
                break;
            case 1: std::copy_n(Bytes(at(a), at(a + size)).begin(), size, at(b)); break;
            case 2: DropEntry(directory, a); break;
            default: {
                // Over an entry of any other directory.
                const std::uint32_t target = EntryOf(random_.Of(directories));
                if (target <= Size() && Size() - target >= size)
                    std::copy_n(Bytes(at(a), at(a + size)).begin(), size, at(target));
            }
        }
    }

    std::uint32_t EntryOf(const Directory& directory) {
        return directory.entries +
               directory.entryBytes * static_cast<std::uint32_t>(random_.Below(directory.count));
    }

    // Those behind it move up, with the number of entries or without.
    void DropEntry(const Directory& directory, std::uint32_t entry) {
        const std::uint32_t end =
            std::min(Size(), directory.entries + directory.count * directory.entryBytes);
        if (entry + directory.entryBytes > end) return;
        std::copy(bytes_.begin() + entry + directory.entryBytes, bytes_.begin() + end,
                  bytes_.begin() + entry);
        if (random_.Below(3) != 0)
            WriteNumber(bytes_, directory.countPosition, directory.countSize, directory.order,
                        directory.count - 1);
    }

    // One piece over the front of another, as far as both go.
    void CopyPiece(const Bytes& from, const Structure& structure) {
        const Block source = random_.Of(structure.blocks);
        const Block target = random_.Of(file_.structure.blocks);
        if (source.position >= from.size() || target.position >= bytes_.size()) return;
        const std::size_t length = std::min<std::size_t>(
            {source.length, from.size() - source.position, bytes_.size() - target.position, 4096});
        const Bytes piece(from.begin() + source.position,
                          from.begin() + static_cast<std::ptrdiff_t>(source.position + length));
        std::copy(piece.begin(), piece.end(), bytes_.begin() + target.position);
    }

    void AlterBytes() {
        if (bytes_.empty()) return;
        const std::size_t count = 1 + random_.Below(8);
        for (std::size_t i = 0; i < count; ++i)
            random_.Of(bytes_) = static_cast<std::uint8_t>(random_.Next());
    }

    void Reshape() {
        const Block block = random_.Of(file_.structure.blocks);
        const auto start = bytes_.begin() + std::min(block.position, Size());
        const auto end = start + std::min<std::ptrdiff_t>(block.length, bytes_.end() - start);
        switch (random_.Below(5)) {
            case 0: bytes_.resize(random_.Below(bytes_.size() + 1)); break;
            case 1:
                bytes_.erase(end - std::min<std::ptrdiff_t>(2, end - start), bytes_.end());
                break;
            case 2: bytes_.erase(start, end); break;
            case 3: {
                const Bytes twice(start, end);
                bytes_.insert(start, twice.begin(), twice.end());
                break;
            }
            default: {
                const std::size_t length = 1 + random_.Below(16);
                bytes_.insert(start, length, static_cast<std::uint8_t>(random_.Next()));
            }
        }
    }

    const SoundFile& file_;
    const SoundFile& other_;
    Bytes bytes_;
    Random random_;
};

}  // namespace

SoundFile MakeSound(std::string name, Bytes bytes) {
    Structure structure = FindStructure(bytes);
    return {std::move(name), std::move(bytes), std::move(structure)};
}

const std::vector<SoundFile>& BuiltInFiles() {
    static const std::vector<SoundFile> files = [] {
        std::vector<SoundFile> made;
        for (const auto& list : {test::SeedFiles(), test::RawSeeds()})
            for (const test::SeedFile& seed : list)
                made.push_back(MakeSound(seed.name, seed.bytes));
        return made;
    }();
    return files;
}

Bytes Mutate(const SoundFile& file, std::uint64_t number) {
    if (file.bytes.empty()) return {};
    const auto& lenders = BuiltInFiles();
    return Mutation(file, lenders[Random(~number).Below(lenders.size())], number).Run();
}

}  // namespace qmx::hostile
