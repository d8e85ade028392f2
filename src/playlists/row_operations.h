// What some commands do to the rows of a list, told as values: texts in, texts or flags out.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace plimo {

// The rows that a walk by a running index removes, by their places, where the rows at these places (in rising order)
// equal the text: each of them goes, and the row that moves up into its place is passed over.
std::vector<std::size_t> removedByWalk(std::span<const std::size_t> places);

// The rows that are gone when the same walk is done for each of the names, one after the other; in rising order.
std::vector<std::size_t> removedByWalks(std::span<const std::string_view> rows,
                                        std::span<const std::string_view> names);

// So many rows, by their places, after a song has been dropped on a target: it leaves every place where it stands, of
// which there is one at least, and stands again behind every target. Both in rising order.
std::vector<std::size_t> orderAfterDrop(std::size_t count, std::span<const std::size_t> songs,
                                        std::span<const std::size_t> targets);

// The order in which a shuffle deals the rows: first the even places, then the odd ones.
std::vector<std::size_t> dealOrder(std::size_t count);

}  // namespace plimo
