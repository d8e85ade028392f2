#include "playlists/row_rules.h"

#include <cstdint>
#include <numeric>

#include "base/text_index.h"

namespace plimo {

std::vector<bool> rowsRemovedByWalk(std::span<const std::string_view> rows, std::string_view text) {
  std::vector<bool> removed(rows.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row] != text) continue;
    removed[row] = true;
    ++row;  // what moves up is not looked at
  }
  return removed;
}

std::vector<bool> rowsRemovedByWalks(std::span<const std::string_view> rows, std::span<const std::string_view> names) {
  TextIndex index(names.size());
  for (const std::string_view name : names) index.add(name);
  std::vector<std::vector<std::size_t>> places(index.size());  // where each name still stands, in order
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::uint32_t name = index.find(rows[row]);
    if (name != TextIndex::none) places[name].push_back(row);
  }
  // A list linked through the rows that still stand tells which row moves up behind a removed one.
  const std::size_t end = rows.size();
  std::vector<std::size_t> next(end + 1);
  std::vector<std::size_t> previous(end + 1);  // of the first: end
  std::iota(next.begin(), next.end(), std::size_t{1});
  for (std::size_t row = 0; row <= end; ++row) previous[row] = row == 0 ? end : row - 1;

  std::vector<bool> removed(rows.size());
  for (const std::string_view name : names) {
    std::vector<std::size_t>& standing = places[index.find(name)];
    std::size_t kept = 0;
    std::size_t passedOver = end;
    for (const std::size_t row : standing) {
      if (row == passedOver) {
        standing[kept++] = row;
        continue;
      }
      removed[row] = true;
      passedOver = next[row];
      if (previous[row] != end) next[previous[row]] = next[row];
      previous[next[row]] = previous[row];
    }
    standing.resize(kept);
  }
  return removed;
}

std::vector<std::size_t> dropped(std::span<const std::string_view> rows, std::size_t song, std::string_view target) {
  std::vector<std::size_t> places;
  places.reserve(rows.size() + 1);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row] != rows[song]) places.push_back(row);
    if (rows[row] == target) places.push_back(song);
  }
  return places;
}

std::vector<std::size_t> dealt(std::size_t count) {
  std::vector<std::size_t> order;
  order.reserve(count);
  for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
    for (std::size_t place = first; place < count; place += 2) order.push_back(place);
  }
  return order;
}

}  // namespace plimo
