// Comparison of paths.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace plimo::scenario {

// Case-insensitive; a doubled backslash counts as one.
inline bool samePath(std::string_view left, std::string_view right) {
  const auto normalized = [](std::string_view path) {
    std::string result;
    for (const char c : path) {
      if (c != '\\' || !result.ends_with('\\')) result += c;
    }
    return foldCase(result);
  };
  return normalized(left) == normalized(right);
}

}  // namespace plimo::scenario
