// Thrown for a scenario line that is wrong.
#pragma once

#include <string>

#include "scenario/source_location.h"

namespace plimo::scenario {

struct ParseError {
  std::string word;  // the token concerned
  std::string reason;
  SourceLocation location = {};  // filled in by the parser
};

}  // namespace plimo::scenario
