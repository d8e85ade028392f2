// The quoted format read character by character, to compare the fast readers with.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace plimo::fuzz {

std::vector<std::string> naiveValues(std::string_view content);

struct NaiveCatalogue {
  // Path, artist, second part, title.
  std::vector<std::array<std::string, 4>> records;
  bool truncated = false;  // values are left over
};
NaiveCatalogue naiveCatalogue(std::string_view content);

}  // namespace plimo::fuzz
