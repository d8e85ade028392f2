#include "fuzz/naive_reader.h"

namespace plimo::fuzz {

std::vector<std::string> naiveValues(std::string_view content) {
  std::vector<std::string> values;
  std::size_t at = content.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  const auto is = [&](char c) { return at < content.size() && content[at] == c; };
  while (at < content.size()) {
    std::string value;
    while (is(' ')) ++at;
    const bool quoted = is('"');
    if (quoted) ++at;
    for (bool inside = quoted; inside && at < content.size(); ++at) {
      if (content[at] != '"') {
        value += content[at];
      } else if (at + 1 < content.size() && content[at + 1] == '"') {
        value += '"';
        ++at;
      } else {
        inside = false;
      }
    }
    for (; at < content.size() && !is(',') && !is('\r') && !is('\n'); ++at) {
      if (!quoted) value += content[at];
    }
    if (is('\r') && at + 1 < content.size() && content[at + 1] == '\n') ++at;
    if (at < content.size()) ++at;
    values.push_back(value);
  }
  return values;
}

NaiveCatalogue naiveCatalogue(std::string_view content) {
  const std::vector<std::string> values = naiveValues(content);
  NaiveCatalogue catalogue;
  for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
    catalogue.records.push_back({values[i], values[i + 1], values[i + 2], values[i + 3]});
  }
  catalogue.truncated = values.size() % 4 != 0;
  return catalogue;
}

}  // namespace plimo::fuzz
