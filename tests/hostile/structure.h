#pragma once
// Where the numbers, directories and blocks of a sound file lie.  The reading here shares nothing
// with the library's: it looks for whatever might be a structure and is content with less.

#include "support/tiff_builder.h"

namespace qmx::hostile {

using test::Bytes;
using test::Order;

enum class Role : std::uint8_t { kTag, kType, kCount, kOffset, kNumber, kByteOrder };

struct Site {
    std::uint32_t position;
    std::uint8_t size;  // 1, 2 or 4
    Role role;
    Order order;
    std::uint32_t base;  // what an offset counts from
};

// A piece of the file that something leads to: a directory, a value, a segment, a section.
struct Block {
    std::uint32_t position;
    std::uint32_t length;
};

// Entries of equal size in a row.
struct Directory {
    std::uint32_t countPosition;
    std::uint8_t countSize;  // 2 or 4
    std::uint32_t entries;   // position of the first
    std::uint32_t entryBytes;
    std::uint32_t count;
    Order order;
};

struct Structure {
    std::vector<Site> sites;
    std::vector<Block> blocks;
    std::vector<Directory> directories;
};

Structure FindStructure(const Bytes& file);

// Numbers in a file; 0 outside it, where nothing is written either.
std::uint32_t ReadNumber(const Bytes& file, std::size_t position, std::size_t size, Order order);
void WriteNumber(Bytes& file, std::size_t position, std::size_t size, Order order,
                 std::uint32_t value);

}  // namespace qmx::hostile
