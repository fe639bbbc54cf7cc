#pragma once
// Conversions of file-controlled numbers, defined for every input.  Out of range and NaN give
// what the x64 conversion instructions give, so results do not depend on compiler or options.

#include <cstdint>

namespace qmx {

// Toward zero; out of range or NaN: 0x80000000.
constexpr std::int32_t TruncateToI32(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<std::int32_t>(value)
                                                         : INT32_MIN;
}

// Toward zero, the low half of the 64-bit conversion; out of its range or NaN: 0.
constexpr std::uint32_t TruncateToU32(double value) {
    return value >= -9223372036854775808.0 && value < 9223372036854775808.0
               ? static_cast<std::uint32_t>(static_cast<std::int64_t>(value))
               : 0u;
}

// Signed arithmetic that wraps, for positions and products made from file values.
constexpr std::int32_t WrappingAdd(std::int32_t a, std::uint32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + b);
}
constexpr std::int32_t WrappingMultiply(std::int32_t a, std::uint32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * b);
}

}  // namespace qmx
