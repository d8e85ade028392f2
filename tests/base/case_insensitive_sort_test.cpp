#include "base/case_insensitive_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "base/text.h"

namespace plimo {
namespace {

std::vector<std::uint32_t> orderOf(const std::vector<std::string_view>& texts) {
  return caseInsensitiveOrder(texts.size(), [&texts](std::size_t index) { return texts[index]; });
}

// The reference implementation.
std::vector<std::uint32_t> expectedOrder(const std::vector<std::string_view>& texts) {
  std::vector<std::uint32_t> indices(texts.size());
  std::iota(indices.begin(), indices.end(), 0U);
  std::stable_sort(indices.begin(), indices.end(), [&](std::uint32_t left, std::uint32_t right) {
    return compareFolded(texts[left], texts[right]) < 0;
  });
  return indices;
}

TEST(CaseInsensitiveSort, IgnoresCase) {
  const std::vector<std::string_view> texts = {"beta",
                                               "Alpha",
                                               "ALPHA 2",
                                               "",
                                               "\xC3\x9C"
                                               "ber",
                                               "\xC3\xBC"
                                               "bel",
                                               "zeta"};
  EXPECT_EQ(orderOf(texts), (std::vector<std::uint32_t>{3, 1, 2, 0, 6, 5, 4}));
}

TEST(CaseInsensitiveSort, IsStable) {
  const std::vector<std::string_view> texts = {"abba abba abba", "b", "ABBA abba abba", "Abba Abba Abba", "abba abba"};
  EXPECT_EQ(orderOf(texts), (std::vector<std::uint32_t>{4, 0, 2, 3, 1}));
}

TEST(CaseInsensitiveSort, PutsAPrefixFirst) {
  using namespace std::string_view_literals;
  const std::vector<std::string_view> texts = {"abcdefgh\0"sv, "abcdefghi", "abcdefgh", "abc\0"sv, "abc", "abc\0\0"sv};
  EXPECT_EQ(orderOf(texts), (std::vector<std::uint32_t>{4, 3, 5, 2, 0, 1}));
}

// Few letters and all lengths: many long common prefixes, some equal strings, ranges above every threshold of the sort.
std::vector<std::string> manyTexts(std::size_t count) {
  const std::vector<std::string> pieces = {"a", "A", "b", "\xFF", "\xC3\x84", "\xC3\xA4", "z", "@", "["};
  std::vector<std::string> texts;
  std::uint32_t chance = 1;
  const auto next = [&chance](std::size_t below) {
    chance = chance * 1664525 + 1013904223;
    return (chance >> 16) % below;
  };
  while (texts.size() < count) {
    std::string text = next(2) != 0 ? "The same beginning " : "";
    for (std::size_t length = next(12); length > 0; --length) text += pieces[next(pieces.size())];
    texts.push_back(text);
  }
  return texts;
}

TEST(CaseInsensitiveSort, AgreesWithAComparisonSortAtEverySize) {
  for (const std::size_t count : {1U, 2U, 300U, 6000U, 40000U}) {
    const std::vector<std::string> owned = manyTexts(count);
    const std::vector<std::string_view> texts(owned.begin(), owned.end());
    EXPECT_EQ(orderOf(texts), expectedOrder(texts)) << count;
  }
}

TEST(CaseInsensitiveSort, IsStableForManyEqualStrings) {
  const std::vector<std::string_view> texts(50000, "the same");
  std::vector<std::uint32_t> indices(texts.size());
  std::iota(indices.begin(), indices.end(), 0U);
  EXPECT_EQ(orderOf(texts), indices);
}

TEST(CaseInsensitiveSort, SortsStringsWithNulBytes) {
  std::vector<std::string> owned = manyTexts(40000);
  owned.insert(owned.end(), {owned.back() + std::string(1, '\0'), owned.back(), std::string("a\0b", 3)});
  const std::vector<std::string_view> texts(owned.begin(), owned.end());
  EXPECT_EQ(orderOf(texts), expectedOrder(texts));
}

TEST(CaseInsensitiveSort, SortsStringsWithVeryLongCommonPrefixes) {
  const std::string longText(4'000'000, 'x');
  const std::vector<std::string> owned = {longText + "b", longText, longText + "A", longText + "\xC3\x84", longText};
  const std::vector<std::string_view> texts(owned.begin(), owned.end());
  EXPECT_EQ(orderOf(texts), (std::vector<std::uint32_t>{1, 4, 2, 0, 3}));
}

}  // namespace
}  // namespace plimo
