// Thrown for a scenario line that is wrong.
#pragma once

#include <string>

namespace plimo::scenario {

struct ParseError {
  std::string word;  // the token concerned
  std::string reason;
  int line = 0;  // from 1; 0 until the parser has filled it in
};

}  // namespace plimo::scenario
