#include "parse/containers/signature.h"

#include <cstring>
#include <string_view>

namespace qmx {
namespace {

using namespace std::string_view_literals;

struct Signature {
    std::size_t position;
    std::string_view bytes;
    Container container;
};

constexpr Signature kSignatures[] = {
    {0, "\0MRM"sv, Container::kMrw},
    {0, "FUJIFILM"sv, Container::kRaf},
    {0, "FOVb"sv, Container::kX3f},
    {0, "\xFF\xD8"sv, Container::kJpeg},
};
constexpr std::string_view kLittleEndianMark = "II";
constexpr std::string_view kBigEndianMark = "MM";
constexpr std::size_t kHeapMarkPosition = 6;
constexpr std::string_view kHeapMark = "HEAPCCDR";

bool Has(std::span<const std::uint8_t> bytes, std::size_t position, std::string_view wanted) {
    return bytes.size() >= position + wanted.size() &&
           std::memcmp(bytes.data() + position, wanted.data(), wanted.size()) == 0;
}

}  // namespace

Container RecogniseContainer(std::span<const std::uint8_t> bytes) {
    if (Has(bytes, 0, kLittleEndianMark) || Has(bytes, 0, kBigEndianMark))
        return Has(bytes, kHeapMarkPosition, kHeapMark) ? Container::kCiff : Container::kTiff;
    for (const Signature& signature : kSignatures)
        if (Has(bytes, signature.position, signature.bytes)) return signature.container;
    return Container::kUnknown;
}

}  // namespace qmx
