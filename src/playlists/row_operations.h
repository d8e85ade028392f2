// The row operations whose result is fixed by a row-by-row algorithm, computed in one pass. Rows are indices from 0.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace plimo {

// The rows that a walk with a running index removes, given the rows (ascending) that match its text. After a removal
// the index is increased all the same, so the row that moves up is skipped.
std::vector<std::size_t> removedByWalk(std::span<const std::size_t> matches);

// The rows removed by one such walk for each of the names in turn; ascending.
std::vector<std::size_t> removedByWalks(std::span<const std::string_view> rows,
                                        std::span<const std::string_view> names);

// The new order of `count` rows after a song is dropped: it is removed from all of its rows (`songs`, at least one) and
// inserted after each target row. Both are ascending.
std::vector<std::size_t> orderAfterDrop(std::size_t count, std::span<const std::size_t> songs,
                                        std::span<const std::size_t> targets);

// The order in which a shuffle deals the rows: first those with even indices, then those with odd ones.
std::vector<std::size_t> dealOrder(std::size_t count);

}  // namespace plimo
