// Whether the program's files are as it writes them, complete.
#pragma once

#include <string>

#include "fuzz/naive_reader.h"

namespace plimo {

// Settings of twelve values, or of the panel's six while their colours are edited.
inline bool isWholeSettings(const std::string& content, bool editing) {
  const std::size_t values = fuzz::naiveValues(content).size();
  return content.ends_with("\r\n") && (values == 12 || (editing && values == 6));
}

inline bool isWholeCatalogue(const std::string& content) {
  return content.empty() || (content.ends_with("\"\r\n") && !fuzz::naiveCatalogue(content).truncated);
}

// A playlist, or the path of Winamp.
inline bool isWholeText(const std::string& content) { return content.empty() || content.ends_with("\r\n"); }

}  // namespace plimo
