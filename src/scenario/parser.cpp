#include "scenario/parser.h"

#include <algorithm>

#include "base/text.h"
#include "scenario/argument_types.h"
#include "scenario/parse_error.h"
#include "scenario/tokenizer.h"

namespace plimo::scenario {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t maxNameWords = 3;

const Command* commandNamed(std::string_view name) {
  for (const auto commands : {worldCommands(), userCommands(), dialogExpectations(), controlExpectations(),
                              listExpectations(), machineExpectations()}) {
    for (const Command& command : commands) {
      if (command.name == name) return &command;
    }
  }
  return nullptr;
}

// The command with the longest name that the words begin with; its name is removed from them.
const Command& takeCommand(std::vector<std::string>& words) {
  for (std::size_t length = std::min(maxNameWords, words.size()); length > 0; --length) {
    std::string name = words[0];
    for (std::size_t i = 1; i < length; ++i) name.append(" ").append(words[i]);
    if (const Command* command = commandNamed(name)) {
      words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(length));
      return *command;
    }
  }
  if (words[0] == "expect" || words[0] == "answer") {
    if (words.size() > 1) throw ParseError{words[1], "nothing of that kind can follow " + words[0]};
    throw ParseError{words[0], "something is missing after it"};
  }
  throw ParseError{words[0], "there is no such command"};
}

class Parser {
 public:
  Parser(std::string_view content, const ControlNames& names) : names_(names) {
    if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
    lines_ = split(content, '\n');
    if (lines_.back().empty()) lines_.pop_back();
    for (std::string_view& line : lines_) {
      if (line.ends_with('\r')) line.remove_suffix(1);
    }
  }

  Scenario parse() {
    Scenario scenario;
    while (next_ < lines_.size()) {
      const int number = static_cast<int>(next_) + 1;
      try {
        std::vector<std::string> words = tokenize(lines_[next_++]);
        if (!words.empty()) scenario.lines.push_back(parseLine(number, std::move(words)));
      } catch (ParseError& error) {
        error.line = number;
        throw;
      }
    }
    scenario.lastLine = static_cast<int>(lines_.size());
    return scenario;
  }

 private:
  Line parseLine(int number, std::vector<std::string> words) {
    const Command& command = takeCommand(words);
    checkArguments(command.name, command.signature, words, names_);
    Line line{number, &command, std::move(words), {}, false};
    line.hasBlock = command.block == Block::always || (command.block == Block::insteadOfText && line.arguments.empty());
    if (line.hasBlock) line.block = parseBlock(command.name);
    return line;
  }

  std::vector<std::string> parseBlock(std::string_view command) {
    const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(next_);
    const auto end = std::find(first, lines_.end(), "end");
    if (end == lines_.end()) throw ParseError{std::string(command), "its block has no end"};
    next_ = static_cast<std::size_t>(end - lines_.begin()) + 1;
    return {first, end};
  }

  const ControlNames& names_;
  std::vector<std::string_view> lines_;
  std::size_t next_ = 0;
};

}  // namespace

Scenario parseScenario(std::string_view content, const ControlNames& names) { return Parser(content, names).parse(); }

}  // namespace plimo::scenario
