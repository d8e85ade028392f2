#include "scenario/literals.h"

#include <algorithm>
#include <charconv>

namespace plimo::scenario {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::optional<long long> parseInteger(std::string_view word) {
  long long number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

std::optional<double> parseDecimal(std::string_view word) {
  double number = 0;
  const std::string_view digits = word.starts_with('-') ? word.substr(1) : word;
  const bool plain = !digits.empty() && isDigit(digits.front()) && isDigit(digits.back()) &&
                     std::all_of(digits.begin(), digits.end(), [](char c) { return isDigit(c) || c == '.'; });
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number, std::chars_format::fixed);
  if (!plain || error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    switch (c) {
      case '\r':
        result += "<CR>";
        break;
      case '\n':
        result += "<LF>";
        break;
      case '\t':
        result += "<TAB>";
        break;
      case '\0':
        result += "<NUL>";
        break;
      case '"':
        result += "\"\"";
        break;
      default:
        result += c;
    }
  }
  return result + '"';
}

}  // namespace plimo::scenario
