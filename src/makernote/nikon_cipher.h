#pragma once
// The cipher over parts of Nikon's MakerNotes, as public descriptions of the notes give it: a
// stream of bytes made from the body's serial number and its count of releases.

#include <cstdint>
#include <span>

namespace qmx {

// Deciphers in place the bytes that begin where the cipher does.  Enciphers plain ones.
void DecipherNikon(std::span<std::uint8_t> bytes, std::uint32_t serial, std::uint32_t shutterCount);

}  // namespace qmx
