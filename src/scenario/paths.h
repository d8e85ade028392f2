// Paths as the scenario's world has them.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace plimo::scenario {

// True for two spellings of one path: compared without case, a doubled backslash counting as one.
inline bool samePath(std::string_view left, std::string_view right) {
  const auto plain = [](std::string_view path) {
    std::string result;
    for (const char c : path) {
      if (c != '\\' || !result.ends_with('\\')) result += c;
    }
    return foldCase(result);
  };
  return plain(left) == plain(right);
}

}  // namespace plimo::scenario
