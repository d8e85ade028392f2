// A line of a scenario file.
#pragma once

#include <string>

namespace plimo::scenario {

struct SourceLocation {
  std::string file;
  int line = 0;  // from 1
};

}  // namespace plimo::scenario
