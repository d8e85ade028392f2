// Splits a scenario's line into tokens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plimo::scenario {

// The tokens of one line. They are separated by blanks and tabs, `#` outside quotes ends the line, and a token in
// double quotes is literal except for `""`, which is one double quote. Throws ParseError for a misplaced quote.
std::vector<std::string> tokenize(std::string_view line);

}  // namespace plimo::scenario
