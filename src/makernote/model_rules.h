#pragma once
// The rows that give camera models their numbers.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "parse/core/image_info.h"

namespace qmx {

// A name in the form that models are compared in: upper case, without blanks, since cameras of one
// maker differ in both.  Cut at its capacity.
template <std::size_t Capacity>
struct ModelKey {
    char text[Capacity] = {};
    std::uint8_t length = 0;

    constexpr explicit ModelKey(std::string_view name) {
        for (const char c : name) {
            if (c == ' ' || length == Capacity) continue;
            text[length++] = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
    }
    constexpr std::string_view View() const { return {text, length}; }
};

// One row: a pattern of at most 27 characters in which "*" stands for any characters and "#" for
// one digit.
class ModelRule {
public:
    consteval ModelRule(const char* pattern, std::int32_t modelId)
        : key_(pattern),
          exact_(key_.View().find_first_of("*#") == std::string_view::npos),
          modelId_(modelId) {}

    constexpr std::int32_t modelId() const { return modelId_; }
    bool Matches(std::string_view model) const {
        return exact_ ? key_.View() == model : MatchesPattern(model);
    }

private:
    bool MatchesPattern(std::string_view model) const;

    ModelKey<27> key_;
    bool exact_;
    std::int32_t modelId_;
};

// The rows of one maker, first match first; empty for makers whose models need no number.
std::span<const ModelRule> ModelRulesFor(MakerId maker);

}  // namespace qmx
