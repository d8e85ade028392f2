// The alphabetical order of many texts.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace plimo {

// The texts' places in their order without regard to case (that of compareFolded); texts that are the same but for case
// stay as they stand. Each text is folded once.
std::vector<std::uint32_t> foldedOrder(std::span<const std::string_view> texts);

}  // namespace plimo
