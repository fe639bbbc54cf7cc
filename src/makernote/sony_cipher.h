#pragma once
// The substitution that hides some blocks of Sony's notes, byte by byte and without a key: a plain
// byte below 249 is stored as its cube modulo 249, the others as they are.

#include <cstdint>

namespace qmx {

std::uint8_t SonyPlainByte(std::uint8_t stored);

}  // namespace qmx
