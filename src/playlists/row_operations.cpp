#include "playlists/row_operations.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "base/string_interner.h"

namespace plimo {

std::vector<std::size_t> removedByWalk(std::span<const std::size_t> matches) {
  std::vector<std::size_t> removed;
  for (const std::size_t row : matches) {
    const bool skipped = !removed.empty() && removed.back() + 1 == row;
    if (!skipped) removed.push_back(row);
  }
  return removed;
}

std::vector<std::size_t> removedByWalks(std::span<const std::string_view> rows,
                                        std::span<const std::string_view> names) {
  StringInterner index(names.size());
  std::vector<std::uint32_t> numbers(names.size());
  index.add(names, numbers);
  std::vector<std::vector<std::size_t>> remaining(index.size());  // rows of each name, ascending
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::uint32_t name = index.find(rows[row]);
    if (name != StringInterner::none) remaining[name].push_back(row);
  }
  // A doubly linked list of the remaining rows gives the row that moves up after a removal.
  const std::size_t end = rows.size();
  std::vector<std::size_t> next(end);
  std::vector<std::size_t> previous(end + 1);  // of the first row: itself, as what follows a removed row is not read
  std::iota(next.begin(), next.end(), std::size_t{1});
  std::iota(previous.begin() + 1, previous.end(), std::size_t{0});

  std::vector<std::size_t> removed;
  for (const std::uint32_t number : numbers) {
    std::vector<std::size_t>& matches = remaining[number];
    std::size_t kept = 0;
    std::size_t skipped = end;
    for (const std::size_t row : matches) {
      if (row == skipped) {
        matches[kept++] = row;
        continue;
      }
      removed.push_back(row);
      skipped = next[row];
      next[previous[row]] = next[row];
      previous[next[row]] = previous[row];
    }
    matches.resize(kept);
  }
  std::sort(removed.begin(), removed.end());
  return removed;
}

std::vector<std::size_t> orderAfterDrop(std::size_t count, std::span<const std::size_t> songs,
                                        std::span<const std::size_t> targets) {
  std::vector<std::size_t> order;
  order.reserve(count + targets.size());
  auto song = songs.begin();
  auto target = targets.begin();
  for (std::size_t row = 0; row < count; ++row) {
    if (song != songs.end() && *song == row) {
      ++song;
    } else {
      order.push_back(row);
    }
    if (target != targets.end() && *target == row) {
      order.push_back(songs.front());
      ++target;
    }
  }
  return order;
}

std::vector<std::size_t> dealOrder(std::size_t count) {
  std::vector<std::size_t> order;
  order.reserve(count);
  for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
    for (std::size_t row = first; row < count; row += 2) order.push_back(row);
  }
  return order;
}

}  // namespace plimo
