#include "scenario/parser.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "scenario/argument_types.h"
#include "scenario/parse_error.h"
#include "scenario/read_file.h"
#include "scenario/tokenizer.h"

namespace plimo::scenario {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view includeKeyword = "include";
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

// Parses one file, and the files that it includes by further parsers.
class Parser {
 public:
  // `includer` is null for the scenario itself.
  Parser(std::string file, std::string_view content, const ControlNames& names, const Parser* includer = nullptr)
      : location_{std::move(file), 0}, names_(names), includer_(includer) {
    if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
    lines_ = split(content, '\n');
    if (lines_.back().empty()) lines_.pop_back();
    for (std::string_view& line : lines_) {
      if (line.ends_with('\r')) line.remove_suffix(1);
    }
  }

  // Appends the parsed lines to `scenario`.
  void parseInto(Scenario& scenario) {
    while (next_ < lines_.size()) {
      location_.line = static_cast<int>(next_) + 1;
      try {
        parseLine(tokenize(lines_[next_++]), scenario);
      } catch (ParseError& error) {
        if (error.location.line == 0) error.location = location_;
        throw;
      }
    }
    scenario.end = {location_.file, static_cast<int>(lines_.size())};
  }

 private:
  void parseLine(std::vector<std::string> words, Scenario& scenario) {
    if (words.empty()) return;
    if (words[0] == includeKeyword) {
      words.erase(words.begin());
      checkArguments(includeKeyword, "PATH", words, names_);
      include(words[0], scenario);
      return;
    }
    const Command& command = takeCommand(words);
    checkArguments(command.name, command.signature, words, names_);
    Line line{location_, &command, std::move(words), {}, false};
    line.hasBlock = command.block == Block::always || (command.block == Block::insteadOfText && line.arguments.empty());
    if (line.hasBlock) line.block = parseBlock(command.name);
    scenario.lines.push_back(std::move(line));
  }

  void include(const std::string& name, Scenario& scenario) {
    const std::filesystem::path path = std::filesystem::path(location_.file).parent_path() / name;
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) throw ParseError{name, "no such file"};
    for (const Parser* parser = this; parser != nullptr; parser = parser->includer_) {
      if (std::filesystem::equivalent(parser->location_.file, path, ignored)) {
        throw ParseError{name, "this file includes itself"};
      }
    }
    const auto content = readFile(path.generic_string());
    if (!content) throw ParseError{name, "the file cannot be read"};
    Parser(path.generic_string(), *content, names_, this).parseInto(scenario);
  }

  std::vector<std::string> parseBlock(std::string_view command) {
    const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(next_);
    const auto end = std::find(first, lines_.end(), "end");
    if (end == lines_.end()) throw ParseError{std::string(command), "its block has no end"};
    next_ = static_cast<std::size_t>(end - lines_.begin()) + 1;
    return {first, end};
  }

  SourceLocation location_;  // the file, and the line being parsed
  const ControlNames& names_;
  const Parser* includer_;
  std::vector<std::string_view> lines_;
  std::size_t next_ = 0;
};

}  // namespace

Scenario parseScenario(const std::string& file, std::string_view content, const ControlNames& names) {
  Scenario scenario;
  Parser(file, content, names).parseInto(scenario);
  return scenario;
}

}  // namespace plimo::scenario
