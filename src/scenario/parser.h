// Parses scenario files. A file is parsed completely, with the files that it includes, before any of it is executed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scenario/command.h"
#include "scenario/control_names.h"
#include "scenario/source_location.h"

namespace plimo::scenario {

struct Scenario {
  std::vector<Line> lines;
  SourceLocation end;  // the last line of the file itself
};

// `content` is the content of `file`, whose path is used in locations and to find included files. Throws ParseError for
// the first line that is wrong.
Scenario parseScenario(const std::string& file, std::string_view content, const ControlNames& names);

}  // namespace plimo::scenario
