// A scenario, read whole before any of it runs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scenario/command.h"
#include "scenario/vocabulary.h"

namespace plimo::scenario {

struct Script {
  std::vector<Line> lines;
  int lastLine = 0;  // the file's own
};

// The first line that cannot be read.
struct UnreadableLine {
  int line = 0;
  std::string word;
  std::string reason;
};

// Throws UnreadableLine.
Script readScript(std::string_view content, const Vocabulary& vocabulary);

}  // namespace plimo::scenario
