#pragma once
// Decimal numbers in a file's texts, whatever the user's locale is.

#include <string_view>

namespace qmx {

// Takes the number that a text begins with off its front: "12", "-.5", "1.25e-3".  False, with
// nothing taken, when there is none or no finite float holds it.  Exact for 15 digits, which is
// more than a float keeps; std::from_chars would bring 50 KB into the library.
bool TakeDecimal(std::string_view& text, float& number);

}  // namespace qmx
