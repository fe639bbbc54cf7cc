#include "rawdev/balance_text.h"

#include "parse/core/decimal.h"

namespace qmx {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// Takes one number behind blanks.
bool TakeNumber(std::string_view& line, float& number) {
    const std::size_t start = line.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return false;
    line.remove_prefix(start);
    if (line.front() == '+') line.remove_prefix(1);
    return TakeDecimal(line, number);
}

void ReadNeutral(std::string_view line, RawDecodeState& state) {
    float numbers[3];
    for (float& number : numbers)
        if (!TakeNumber(line, number)) return;
    for (int color = 0; color < 3; ++color) state.cameraMultipliers[color] = numbers[color];
    state.cameraMultipliers[3] = numbers[1];
}

}  // namespace

void ReadBalanceText(std::string_view text, RawDecodeState& state) {
    constexpr std::string_view kNeutral = "Neutral";
    if (text.size() < 7 || !text.starts_with("MATRIX")) state.rawColor = false;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(std::string_view("\n\r\0", 3));
        const std::string_view line = text.substr(0, end);
        if (line.starts_with(kNeutral)) ReadNeutral(line.substr(kNeutral.size()), state);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

void ReadLeafBlock(std::string_view block, RawDecodeState& state) {
    constexpr std::string_view kName = "NeutObj_neutrals";
    constexpr std::size_t kToText = 28;  // the rest of the name's field and the length
    const std::size_t at = block.find(kName);
    if (at == std::string_view::npos || block.size() - at < kName.size() + kToText) return;
    block.remove_prefix(at + kName.size() + kToText);
    float neutral[4];
    for (float& number : neutral)
        if (!TakeNumber(block, number) || !(number > 0)) return;
    for (int color = 0; color < 3; ++color)
        state.cameraMultipliers[color] = neutral[0] / neutral[color + 1];
    state.cameraMultipliers[3] = state.cameraMultipliers[1];
}

}  // namespace qmx
