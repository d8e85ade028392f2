#include "playlists/row_operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace plimo {
namespace {

using Texts = std::vector<std::string_view>;

// Reference implementation: removes row by row, on the list itself.
void referenceWalk(std::vector<std::string_view>& rows, std::string_view text) {
  const std::size_t bound = rows.size();
  for (std::size_t k = 0; k < bound; ++k) {
    if (k < rows.size() && rows[k] == text) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(k));
  }
}

std::vector<std::size_t> rowsOf(const Texts& rows, std::string_view text) {
  std::vector<std::size_t> found;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row] == text) found.push_back(row);
  }
  return found;
}

Texts kept(const Texts& rows, const std::vector<std::size_t>& removed) {
  Texts left;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (std::find(removed.begin(), removed.end(), row) == removed.end()) left.push_back(rows[row]);
  }
  return left;
}

Texts afterWalk(const Texts& rows, std::string_view text) { return kept(rows, removedByWalk(rowsOf(rows, text))); }

TEST(RemovalByWalk, SkipsTheRowThatMovesUp) { EXPECT_EQ(afterWalk({"a", "a", "b", "a"}, "a"), (Texts{"a", "b"})); }

// Calls `check` with every list of at most `maxRows` rows that are a, b or c.
template <class Check>
void forAllSmallLists(std::size_t maxRows, Check check) {
  constexpr std::string_view letters[] = {"a", "b", "c"};
  std::size_t combinations = 1;
  for (std::size_t length = 0; length <= maxRows; ++length, combinations *= 3) {
    for (std::size_t combination = 0; combination < combinations; ++combination) {
      Texts rows;
      for (std::size_t rest = combination, i = 0; i < length; ++i, rest /= 3) rows.push_back(letters[rest % 3]);
      check(rows);
    }
  }
}

TEST(RemovalByWalk, EqualsTheReferenceForAllSmallLists) {
  forAllSmallLists(7, [](const Texts& rows) {
    Texts expected = rows;
    referenceWalk(expected, "a");
    ASSERT_EQ(afterWalk(rows, "a"), expected);
    for (const Texts& names : {Texts{"a", "a"}, Texts{"b", "a", "b"}, Texts{"c", "a", "a", "d", "b", "a"}}) {
      expected = rows;
      for (const std::string_view name : names) referenceWalk(expected, name);
      ASSERT_EQ(kept(rows, removedByWalks(rows, names)), expected);
    }
  });
}

TEST(RemovalByWalk, GivesTheRowsOfSeveralNamesInAscendingOrder) {
  const Texts rows = {"a", "b", "a", "c"};
  EXPECT_EQ(removedByWalks(rows, Texts{"c", "b", "a"}), (std::vector<std::size_t>{0, 1, 3}));
}

TEST(RemovalByWalk, EqualsTheReferenceForLongLists) {
  std::mt19937 random(7);
  for (int round = 0; round < 50; ++round) {
    std::vector<std::string> store;
    for (int i = 0; i < 400; ++i) store.push_back(std::to_string(random() % 12));
    const Texts rows(store.begin(), store.end());
    Texts names;
    for (int i = 0; i < 40; ++i) names.push_back(rows[random() % rows.size()]);
    Texts expected = rows;
    for (const std::string_view name : names) referenceWalk(expected, name);
    ASSERT_EQ(kept(rows, removedByWalks(rows, names)), expected);
  }
}

Texts afterDrop(const Texts& rows, std::size_t song, std::string_view target) {
  Texts texts;
  for (const std::size_t row : orderAfterDrop(rows.size(), rowsOf(rows, rows[song]), rowsOf(rows, target))) {
    texts.push_back(rows[row]);
  }
  return texts;
}

TEST(Drop, PutsThePickedUpSongBelowTheTarget) {
  const Texts rows = {"A", "B", "C", "D"};
  EXPECT_EQ(afterDrop(rows, 2, "A"), (Texts{"A", "C", "B", "D"}));
  EXPECT_EQ(afterDrop(rows, 1, "D"), (Texts{"A", "C", "D", "B"}));
  EXPECT_EQ(afterDrop(rows, 1, "B"), rows);
}

TEST(Drop, InsertsAfterEveryRowThatEqualsTheTarget) {
  EXPECT_EQ(afterDrop({"A", "B", "A", "B"}, 1, "A"), (Texts{"A", "B", "A", "B"}));
  EXPECT_EQ(afterDrop({"B", "A", "B"}, 0, "B"), (Texts{"B", "A", "B"}));
}

TEST(Drop, EqualsTheReferenceForAllSmallLists) {
  forAllSmallLists(5, [](const Texts& rows) {
    for (std::size_t song = 0; song < rows.size(); ++song) {
      for (const std::string_view target : rows) {
        Texts expected = rows;
        std::erase(expected, rows[song]);
        if (rows[song] == target) {
          expected = rows;  // removed, and inserted at the same rows
        } else {
          for (std::size_t k = 0; k < expected.size(); ++k) {
            if (expected[k] == target) expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(++k), rows[song]);
          }
        }
        ASSERT_EQ(afterDrop(rows, song, target), expected);
      }
    }
  });
}

// Reference implementation: deals the rows alternately onto two lists and joins them.
std::vector<std::size_t> dealtAlternately(std::vector<std::size_t> rows) {
  std::vector<std::size_t> first;
  std::vector<std::size_t> second;
  bool toFirst = true;
  for (const std::size_t row : rows) {
    (toFirst ? first : second).push_back(row);
    toFirst = !toFirst;
  }
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(Shuffle, EqualsTheReferenceForAnyNumberOfRowsAndRepetitions) {
  for (std::size_t count = 0; count <= 12; ++count) {
    std::vector<std::size_t> expected(count);
    std::iota(expected.begin(), expected.end(), std::size_t{0});
    std::vector<std::size_t> rows = expected;
    for (int time = 0; time < 13; ++time) {
      expected = dealtAlternately(expected);
      std::vector<std::size_t> next;
      for (const std::size_t row : dealOrder(count)) next.push_back(rows[row]);
      rows = next;
      ASSERT_EQ(rows, expected) << count << " rows, time " << time;
    }
  }
}

TEST(Shuffle, DealsEvenIndexesThenOddOnes) {
  EXPECT_EQ(dealOrder(5), (std::vector<std::size_t>{0, 2, 4, 1, 3}));
  EXPECT_EQ(dealOrder(4), (std::vector<std::size_t>{0, 2, 1, 3}));
  EXPECT_EQ(dealOrder(1), (std::vector<std::size_t>{0}));
  EXPECT_TRUE(dealOrder(0).empty());
}

}  // namespace
}  // namespace plimo
