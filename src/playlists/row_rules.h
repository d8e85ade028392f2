// What some commands do to the rows of a list, told as values: texts in, texts or flags out.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace plimo {

// The rows that a walk by a running index removes: each row that equals the text goes, and the row that moves up into
// its place is passed over. One flag a row.
std::vector<bool> rowsRemovedByWalk(std::span<const std::string_view> rows, std::string_view text);

// The same walk once for each of the names, one after the other. One flag a row.
std::vector<bool> rowsRemovedByWalks(std::span<const std::string_view> rows, std::span<const std::string_view> names);

// The rows, by their places, after a song of the list has been dropped on the target: the song leaves every place where
// it stands, and stands again behind every row that equals the target.
std::vector<std::size_t> dropped(std::span<const std::string_view> rows, std::size_t song, std::string_view target);

// The order in which a shuffle deals the rows: first the even places, then the odd ones.
std::vector<std::size_t> dealt(std::size_t count);

}  // namespace plimo
