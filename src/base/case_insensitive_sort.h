// The alphabetical order of many texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace plimo {

// The places of `count` texts in their order without regard to case (that of compareFolded); texts that are the same
// but for case stay as they stand. `textAt(place)` gives a text, good until this returns. Many texts are sorted on two
// threads, which both call it.
std::vector<std::uint32_t> caseInsensitiveOrder(std::size_t count,
                                                const std::function<std::string_view(std::size_t)>& textAt);

}  // namespace plimo
