// How a scenario's line falls into words.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plimo::scenario {

// A line that cannot be read: the word concerned, and what is wrong with it.
struct Unreadable {
  std::string word;
  std::string reason;
};

// The words of one line. Blanks and tabs part them, `#` outside quotes ends the line, and a word in double quotes is
// literal but for `""`, which is one double quote. Throws Unreadable for a quote in the wrong place.
std::vector<std::string> wordsOf(std::string_view line);

// The number that the whole word is: decimal digits, with a minus sign and a fraction where those are allowed.
// Nothing for anything else, also for numbers out of range.
std::optional<long long> wholeNumber(std::string_view word);
std::optional<double> decimalNumber(std::string_view word);

// The text in double quotes as a scenario would write it, with line ends and other unseen characters made visible.
std::string quoted(std::string_view text);

}  // namespace plimo::scenario
