#include "scenario/tokenizer.h"

#include "scenario/parse_error.h"

namespace plimo::scenario {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// Reads the quoted token that begins at `position`, and moves `position` past it.
std::string readQuoted(std::string_view line, std::size_t& position) {
  const std::size_t start = position++;
  std::string token;
  while (true) {
    const std::size_t quote = line.find('"', position);
    if (quote == std::string_view::npos) throw ParseError{std::string(line.substr(start)), "the quotes are not closed"};
    token.append(line.substr(position, quote - position));
    position = quote + 1;
    if (position == line.size() || line[position] != '"') return token;
    token += '"';
    ++position;
  }
}

std::size_t endOfUnquoted(std::string_view line, std::size_t position) {
  while (position < line.size() && !isBlank(line[position]) && line[position] != '#') ++position;
  return position;
}

}  // namespace

std::vector<std::string> tokenize(std::string_view line) {
  std::vector<std::string> tokens;
  std::size_t position = 0;
  while (true) {
    while (position < line.size() && isBlank(line[position])) ++position;
    if (position == line.size() || line[position] == '#') return tokens;
    const std::size_t start = position;
    if (line[position] == '"') {
      tokens.push_back(readQuoted(line, position));
      if (position < line.size() && !isBlank(line[position]) && line[position] != '#') {
        throw ParseError{std::string(line.substr(start, endOfUnquoted(line, position) - start)),
                         "a blank is missing after the quotes"};
      }
      continue;
    }
    position = endOfUnquoted(line, position);
    const std::string_view token = line.substr(start, position - start);
    if (token.find('"') != std::string_view::npos) {
      throw ParseError{std::string(token), "a quote inside a word; put the whole word in quotes"};
    }
    tokens.emplace_back(token);
  }
}

}  // namespace plimo::scenario
