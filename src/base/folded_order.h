// The alphabetical order of many texts.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace plimo {

// The texts' places in their order without regard to case (that of compareFolded); texts that are the same but for case
// stay as they stand. Many texts are sorted on two threads.
std::vector<std::uint32_t> foldedOrder(std::vector<std::string_view> texts);

}  // namespace plimo
