#include "scenario/script.h"

#include <algorithm>

#include "base/text.h"
#include "scenario/slots.h"
#include "scenario/words.h"

namespace plimo::scenario {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t longestName = 3;  // words

const Command* commandNamed(std::string_view name) {
  for (const auto commands : {worldCommands(), userCommands(), boxExpectations(), controlExpectations(),
                              listExpectations(), machineExpectations()}) {
    for (const Command& command : commands) {
      if (command.name == name) return &command;
    }
  }
  return nullptr;
}

// The command whose name is the longest beginning of the words; these words are taken off.
const Command& takeCommand(std::vector<std::string>& words) {
  for (std::size_t length = std::min(longestName, words.size()); length > 0; --length) {
    std::string name = words[0];
    for (std::size_t i = 1; i < length; ++i) name.append(" ").append(words[i]);
    if (const Command* command = commandNamed(name)) {
      words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(length));
      return *command;
    }
  }
  if (words[0] == "expect" || words[0] == "answer") {
    if (words.size() > 1) throw Unreadable{words[1], "nothing of that kind can stand behind " + words[0]};
    throw Unreadable{words[0], "something is missing behind it"};
  }
  throw Unreadable{words[0], "there is no such command"};
}

class Reader {
 public:
  Reader(std::string_view content, const Vocabulary& vocabulary) : vocabulary_(vocabulary) {
    if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
    lines_ = split(content, '\n');
    if (lines_.back().empty()) lines_.pop_back();
    for (std::string_view& line : lines_) {
      if (line.ends_with('\r')) line.remove_suffix(1);
    }
  }

  Script read() {
    Script script;
    while (next_ < lines_.size()) {
      const int number = static_cast<int>(next_) + 1;
      try {
        std::vector<std::string> words = wordsOf(lines_[next_++]);
        if (!words.empty()) script.lines.push_back(line(number, std::move(words)));
      } catch (const Unreadable& bad) {
        throw UnreadableLine{number, bad.word, bad.reason};
      }
    }
    script.lastLine = static_cast<int>(lines_.size());
    return script;
  }

 private:
  Line line(int number, std::vector<std::string> words) {
    const Command& command = takeCommand(words);
    checkWords(command.name, command.shape, words, vocabulary_);
    Line result{number, &command, std::move(words), {}, false};
    result.hasBlock = command.block == Block::always || (command.block == Block::insteadOfText && result.words.empty());
    if (result.hasBlock) result.block = block(command.name);
    return result;
  }

  std::vector<std::string> block(std::string_view command) {
    const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(next_);
    const auto end = std::find(first, lines_.end(), "end");
    if (end == lines_.end()) throw Unreadable{std::string(command), "its block has no end"};
    next_ = static_cast<std::size_t>(end - lines_.begin()) + 1;
    return {first, end};
  }

  const Vocabulary& vocabulary_;
  std::vector<std::string_view> lines_;
  std::size_t next_ = 0;
};

}  // namespace

Script readScript(std::string_view content, const Vocabulary& vocabulary) { return Reader(content, vocabulary).read(); }

}  // namespace plimo::scenario
