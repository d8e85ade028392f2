// Numbers and quoted text as a scenario writes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plimo::scenario {

// The number that the whole word is: decimal digits, with an optional minus sign. Empty for anything else, and for
// numbers out of range.
std::optional<long long> parseInteger(std::string_view word);
// The same, with an optional fraction.
std::optional<double> parseDecimal(std::string_view word);

// The text in double quotes; line ends and other control characters are made visible.
std::string quoted(std::string_view text);

}  // namespace plimo::scenario
