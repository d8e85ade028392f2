// Parses scenario files. A file is parsed completely before any of it is executed.
#pragma once

#include <string_view>
#include <vector>

#include "scenario/command.h"
#include "scenario/control_names.h"

namespace plimo::scenario {

struct Scenario {
  std::vector<Line> lines;
  int lastLine = 0;  // the number of lines in the file
};

// Throws ParseError for the first line that is wrong.
Scenario parseScenario(std::string_view content, const ControlNames& names);

}  // namespace plimo::scenario
