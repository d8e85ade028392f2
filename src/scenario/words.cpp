#include "scenario/words.h"

#include <algorithm>
#include <charconv>

namespace plimo::scenario {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Reads the word in quotes that begins at `position`, and moves behind it.
std::string quotedWord(std::string_view line, std::size_t& position) {
  const std::size_t start = position++;
  std::string word;
  while (true) {
    const std::size_t quote = line.find('"', position);
    if (quote == std::string_view::npos) throw Unreadable{std::string(line.substr(start)), "the quotes are not closed"};
    word.append(line.substr(position, quote - position));
    position = quote + 1;
    if (position == line.size() || line[position] != '"') return word;
    word += '"';
    ++position;
  }
}

std::size_t endOfBareWord(std::string_view line, std::size_t position) {
  while (position < line.size() && !isBlank(line[position]) && line[position] != '#') ++position;
  return position;
}

}  // namespace

std::vector<std::string> wordsOf(std::string_view line) {
  std::vector<std::string> words;
  std::size_t position = 0;
  while (true) {
    while (position < line.size() && isBlank(line[position])) ++position;
    if (position == line.size() || line[position] == '#') return words;
    const std::size_t start = position;
    if (line[position] == '"') {
      words.push_back(quotedWord(line, position));
      if (position < line.size() && !isBlank(line[position]) && line[position] != '#') {
        throw Unreadable{std::string(line.substr(start, endOfBareWord(line, position) - start)),
                         "a blank is missing behind the quotes"};
      }
      continue;
    }
    position = endOfBareWord(line, position);
    const std::string_view word = line.substr(start, position - start);
    if (word.find('"') != std::string_view::npos) {
      throw Unreadable{std::string(word), "a quote within a word; the whole word stands in quotes"};
    }
    words.emplace_back(word);
  }
}

std::optional<long long> wholeNumber(std::string_view word) {
  long long number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

std::optional<double> decimalNumber(std::string_view word) {
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
