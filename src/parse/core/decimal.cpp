#include "parse/core/decimal.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace qmx {
namespace {

constexpr std::uint64_t kMostDigits = 99999999999999999;  // 17 of them; further ones say nothing
constexpr double kBeyondFloats = 0x1.ffffffp127;          // half a step beyond the largest
constexpr int kMostExponent = 400;                        // beyond every double

bool IsDigit(std::string_view text) { return !text.empty() && text[0] >= '0' && text[0] <= '9'; }

int TakeDigit(std::string_view& text) {
    const int digit = text[0] - '0';
    text.remove_prefix(1);
    return digit;
}

struct Digits {
    std::uint64_t value = 0;
    int exponent = 0;  // of ten
    bool any = false;
};

void TakeDigits(std::string_view& text, Digits& digits, int perFractionDigit) {
    while (IsDigit(text)) {
        const auto digit = static_cast<std::uint64_t>(TakeDigit(text));
        digits.any = true;
        const bool kept = digits.value <= kMostDigits;
        if (kept) digits.value = digits.value * 10 + digit;
        digits.exponent += perFractionDigit + (kept ? 0 : 1);
        digits.exponent = std::clamp(digits.exponent, -kMostExponent, kMostExponent);
    }
}

// An exponent without digits is none.
void TakeExponent(std::string_view& text, Digits& digits) {
    if (text.empty() || (text[0] != 'e' && text[0] != 'E')) return;
    std::string_view rest = text.substr(1);
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+')) rest.remove_prefix(1);
    if (!IsDigit(rest)) return;
    int exponent = 0;
    while (IsDigit(rest)) exponent = std::min(exponent * 10 + TakeDigit(rest), 2 * kMostExponent);
    digits.exponent += negative ? -exponent : exponent;
    text = rest;
}

// One rounding as long as the power is exact, which it is up to 22.
double Scale(double value, int exponent) {
    double power = 1;
    for (int i = 0; i < std::abs(exponent); ++i) power *= 10;
    return exponent < 0 ? value / power : value * power;
}

}  // namespace

bool TakeDecimal(std::string_view& text, float& number) {
    std::string_view rest = text;
    const bool negative = rest.starts_with('-');
    if (negative) rest.remove_prefix(1);
    Digits digits;
    TakeDigits(rest, digits, 0);
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        TakeDigits(rest, digits, -1);
    }
    if (!digits.any) return false;
    TakeExponent(rest, digits);
    const double value =
        digits.value == 0 ? 0 : Scale(static_cast<double>(digits.value), digits.exponent);
    if (!(value < kBeyondFloats)) return false;
    number = static_cast<float>(negative ? -value : value);
    text = rest;
    return true;
}

}  // namespace qmx
