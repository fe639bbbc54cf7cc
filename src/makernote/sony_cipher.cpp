#include "makernote/sony_cipher.h"

#include <array>

namespace qmx {
namespace {

constexpr std::uint32_t kModulus = 249;

// Cubing is one-to-one below the modulus, so the table of stored bytes turns around.
constexpr std::array<std::uint8_t, 256> MakePlainBytes() {
    std::array<std::uint8_t, 256> plain = {};
    for (std::uint32_t byte = 0; byte < plain.size(); ++byte) {
        const std::uint32_t stored = byte < kModulus ? byte * byte * byte % kModulus : byte;
        plain[stored] = static_cast<std::uint8_t>(byte);
    }
    return plain;
}

constexpr auto kPlainBytes = MakePlainBytes();

}  // namespace

std::uint8_t SonyPlainByte(std::uint8_t stored) { return kPlainBytes[stored]; }

}  // namespace qmx
