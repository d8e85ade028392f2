#include "playlists/row_rules.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace plimo {
namespace {

using Texts = std::vector<std::string_view>;

// Row by row, as a person would do it on the list itself.
void walk(std::vector<std::string_view>& rows, std::string_view text) {
  const std::size_t bound = rows.size();
  for (std::size_t k = 0; k < bound; ++k) {
    if (k < rows.size() && rows[k] == text) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(k));
  }
}

Texts kept(const Texts& rows, const std::vector<bool>& removed) {
  Texts left;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!removed[row]) left.push_back(rows[row]);
  }
  return left;
}

TEST(RemovalByWalk, PassesOverTheRowThatMovesUp) {
  EXPECT_EQ(kept({"a", "a", "b", "a"}, rowsRemovedByWalk(Texts{"a", "a", "b", "a"}, "a")), (Texts{"a", "b"}));
}

TEST(RemovalByWalk, IsTheSameAsRowByRowForAllSmallLists) {
  constexpr std::string_view letters[] = {"a", "b", "c"};
  for (std::size_t length = 0; length <= 7; ++length) {
    std::size_t combinations = 1;
    for (std::size_t i = 0; i < length; ++i) combinations *= 3;
    for (std::size_t combination = 0; combination < combinations; ++combination) {
      Texts rows;
      for (std::size_t rest = combination, i = 0; i < length; ++i, rest /= 3) rows.push_back(letters[rest % 3]);
      Texts expected = rows;
      walk(expected, "a");
      ASSERT_EQ(kept(rows, rowsRemovedByWalk(rows, "a")), expected);
      for (const Texts& names : {Texts{"a", "a"}, Texts{"b", "a", "b"}, Texts{"c", "a", "a", "d", "b", "a"}}) {
        expected = rows;
        for (const std::string_view name : names) walk(expected, name);
        ASSERT_EQ(kept(rows, rowsRemovedByWalks(rows, names)), expected);
      }
    }
  }
}

TEST(RemovalByWalk, IsTheSameAsRowByRowForLongLists) {
  std::mt19937 random(7);
  for (int round = 0; round < 50; ++round) {
    std::vector<std::string> store;
    for (int i = 0; i < 400; ++i) store.push_back(std::to_string(random() % 12));
    const Texts rows(store.begin(), store.end());
    Texts names;
    for (int i = 0; i < 40; ++i) names.push_back(rows[random() % rows.size()]);
    Texts expected = rows;
    for (const std::string_view name : names) walk(expected, name);
    ASSERT_EQ(kept(rows, rowsRemovedByWalks(rows, names)), expected);
  }
}

TEST(Drop, PutsThePickedUpSongBelowTheTarget) {
  const Texts rows = {"A", "B", "C", "D"};
  EXPECT_EQ(dropped(rows, "C", "A"), (Texts{"A", "C", "B", "D"}));
  EXPECT_EQ(dropped(rows, "B", "D"), (Texts{"A", "C", "D", "B"}));
  EXPECT_EQ(dropped(rows, "B", "B"), rows);
}

TEST(Drop, InsertsBehindEveryRowThatEqualsTheTarget) {
  EXPECT_EQ(dropped(Texts{"A", "B", "A", "B"}, "B", "A"), (Texts{"A", "B", "A", "B"}));
  EXPECT_EQ(dropped(Texts{"B", "A", "B"}, "B", "B"), (Texts{"B", "A", "B"}));
}

TEST(Shuffle, DealsEvenPlacesThenOddOnes) {
  EXPECT_EQ(dealt(5), (std::vector<std::size_t>{0, 2, 4, 1, 3}));
  EXPECT_EQ(dealt(4), (std::vector<std::size_t>{0, 2, 1, 3}));
  EXPECT_EQ(dealt(1), (std::vector<std::size_t>{0}));
  EXPECT_TRUE(dealt(0).empty());
}

}  // namespace
}  // namespace plimo
