// Case-insensitive sorting of many strings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace plimo {

// The indices of `count` strings in case-insensitive order (that of compareFolded). The sort is stable: strings that
// differ only in case keep their order. `textAt(index)` returns a string; it must stay valid until the sort returns.
// For many strings it is called from two threads at once.
std::vector<std::uint32_t> caseInsensitiveOrder(std::size_t count,
                                                const std::function<std::string_view(std::size_t)>& textAt);

}  // namespace plimo
