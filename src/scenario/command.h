// The scenario language: what a line can say, and what it does.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace plimo::scenario {

class Session;
struct Command;

// One line that has been read.
struct Line {
  int number = 0;  // from 1
  const Command* command = nullptr;
  std::vector<std::string> words;  // behind the command's name
  std::vector<std::string> block;  // the block's lines, as they stand
  bool hasBlock = false;

  // The words from this one on.
  std::span<const std::string> from(std::size_t word) const {
    return std::span(words).subspan(word < words.size() ? word : words.size());
  }
};

enum class Block { none, always, insteadOfText };  // insteadOfText: where the line's last word is left out

struct Command {
  std::string_view name;   // one to three words
  std::string_view shape;  // the words behind it, one slot each: see slots.h
  void (*run)(Session& session, const Line& line);
  Block block = Block::none;
};

// All commands, by topic.
std::span<const Command> worldCommands();
std::span<const Command> userCommands();
std::span<const Command> boxExpectations();
std::span<const Command> controlExpectations();
std::span<const Command> listExpectations();
std::span<const Command> machineExpectations();

}  // namespace plimo::scenario
