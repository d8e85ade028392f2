#include "playlists/row_operations.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "base/string_interner.h"

namespace plimo {

std::vector<std::size_t> removedByWalk(std::span<const std::size_t> places) {
  std::vector<std::size_t> removed;
  for (const std::size_t place : places) {
    const bool movesUp = !removed.empty() && removed.back() + 1 == place;  // and is not looked at
    if (!movesUp) removed.push_back(place);
  }
  return removed;
}

std::vector<std::size_t> removedByWalks(std::span<const std::string_view> rows,
                                        std::span<const std::string_view> names) {
  StringInterner index(names.size());
  std::vector<std::uint32_t> numbers(names.size());
  index.add(names, numbers);
  std::vector<std::vector<std::size_t>> places(index.size());  // where each name still stands, in order
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::uint32_t name = index.find(rows[row]);
    if (name != StringInterner::none) places[name].push_back(row);
  }
  // A list linked through the rows that still stand tells which row moves up behind a removed one.
  const std::size_t end = rows.size();
  std::vector<std::size_t> next(end + 1);
  std::vector<std::size_t> previous(end + 1);  // of the first: end
  std::iota(next.begin(), next.end(), std::size_t{1});
  for (std::size_t row = 0; row <= end; ++row) previous[row] = row == 0 ? end : row - 1;

  std::vector<std::size_t> removed;
  for (const std::uint32_t number : numbers) {
    std::vector<std::size_t>& standing = places[number];
    std::size_t kept = 0;
    std::size_t passedOver = end;
    for (const std::size_t row : standing) {
      if (row == passedOver) {
        standing[kept++] = row;
        continue;
      }
      removed.push_back(row);
      passedOver = next[row];
      if (previous[row] != end) next[previous[row]] = next[row];
      previous[next[row]] = previous[row];
    }
    standing.resize(kept);
  }
  std::sort(removed.begin(), removed.end());
  return removed;
}

std::vector<std::size_t> orderAfterDrop(std::size_t count, std::span<const std::size_t> songs,
                                        std::span<const std::size_t> targets) {
  std::vector<std::size_t> places;
  places.reserve(count + targets.size());
  auto song = songs.begin();
  auto target = targets.begin();
  for (std::size_t row = 0; row < count; ++row) {
    if (song != songs.end() && *song == row) {
      ++song;
    } else {
      places.push_back(row);
    }
    if (target != targets.end() && *target == row) {
      places.push_back(songs.front());
      ++target;
    }
  }
  return places;
}

std::vector<std::size_t> dealOrder(std::size_t count) {
  std::vector<std::size_t> order;
  order.reserve(count);
  for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
    for (std::size_t place = first; place < count; place += 2) order.push_back(place);
  }
  return order;
}

}  // namespace plimo
