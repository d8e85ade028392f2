// The commands of the scenario language.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/source_location.h"

namespace plimo::scenario {

class Session;
struct Command;

// One parsed line.
struct Line {
  SourceLocation location;
  const Command* command = nullptr;
  std::vector<std::string> arguments;  // without the command's name
  std::vector<std::string> block;      // the block's lines, verbatim
  bool hasBlock = false;

  // The arguments from this index on; none if it is past the end.
  std::span<const std::string> argumentsFrom(std::size_t index) const {
    return std::span(arguments).subspan(std::min(index, arguments.size()));
  }
};

enum class Block { none, always, insteadOfText };  // insteadOfText: if the line has no argument

struct Command {
  std::string_view name;       // one to three words
  std::string_view signature;  // see argument_types.h
  void (*run)(Session& session, const Line& line);
  Block block = Block::none;
};

// All commands, by topic.
std::span<const Command> worldCommands();
std::span<const Command> userCommands();
std::span<const Command> dialogExpectations();
std::span<const Command> controlExpectations();
std::span<const Command> listExpectations();
std::span<const Command> machineExpectations();

}  // namespace plimo::scenario
