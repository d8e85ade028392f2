#include "base/string_interner.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace plimo {
namespace {

TEST(StringInterner, GivesEachDistinctTextTheNextNumber) {
  StringInterner index;
  EXPECT_EQ(index.add("b"), 0U);
  EXPECT_EQ(index.add(""), 1U);
  EXPECT_EQ(index.add("b"), 0U);
  EXPECT_EQ(index.size(), 2U);
  EXPECT_EQ(index.text(1), "");
  EXPECT_EQ(index.find("a"), StringInterner::none);
}

TEST(StringInterner, TellsTextsApartByEachOfTheirBytes) {
  StringInterner index;
  std::deque<std::string> texts;
  for (std::size_t length = 0; length < 40; ++length) {
    index.add(texts.emplace_back(length, 'x'));
    for (std::size_t place = 0; place < length; ++place) {
      std::string& changed = texts.emplace_back(length, 'x');
      changed[place] = 'y';
      index.add(changed);
    }
  }
  ASSERT_EQ(index.size(), texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(index.find(texts[i]), i);
}

TEST(StringInterner, FindsManyTextsAtOnceAsItFindsEachOne) {
  StringInterner index;
  std::deque<std::string> texts;
  for (int i = 0; i < 500; ++i) index.add(texts.emplace_back(std::to_string(i * 7)));
  std::deque<std::string> wanted;
  std::vector<std::string_view> views;
  for (int i = 0; i < 3000; ++i) views.push_back(wanted.emplace_back(i % 100 == 99 ? "" : std::to_string(i)));
  std::vector<std::uint32_t> numbers(views.size());
  index.find(views, numbers);
  for (std::size_t i = 0; i < views.size(); ++i) EXPECT_EQ(numbers[i], index.find(views[i])) << views[i];
  EXPECT_EQ(numbers[700], 100U);
  EXPECT_EQ(numbers[701], StringInterner::none);
}

TEST(StringInterner, AddsManyTextsAtOnceAsItAddsEachOne) {
  std::deque<std::string> texts;
  std::vector<std::string_view> views;
  for (int i = 0; i < 3000; ++i) views.push_back(texts.emplace_back(std::to_string(i * 7919 % 1100)));
  StringInterner oneByOne;
  StringInterner parallelInvoke;
  std::vector<std::uint32_t> numbers(views.size());
  parallelInvoke.add(views, numbers);
  for (std::size_t i = 0; i < views.size(); ++i) ASSERT_EQ(numbers[i], oneByOne.add(views[i])) << views[i];
  EXPECT_EQ(parallelInvoke.size(), 1100U);
  EXPECT_EQ(parallelInvoke.find("1099"), oneByOne.find("1099"));
}

}  // namespace
}  // namespace plimo
