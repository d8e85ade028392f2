#include "base/string_interner.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace plimo {
namespace {

TEST(StringInterner, GivesEachDistinctStringTheNextId) {
  StringInterner interner;
  EXPECT_EQ(interner.add("b"), 0U);
  EXPECT_EQ(interner.add(""), 1U);
  EXPECT_EQ(interner.add("b"), 0U);
  EXPECT_EQ(interner.size(), 2U);
  EXPECT_EQ(interner.text(1), "");
  EXPECT_EQ(interner.find("a"), StringInterner::none);
}

TEST(StringInterner, DistinguishesStringsByEveryByte) {
  StringInterner interner;
  std::deque<std::string> texts;
  for (std::size_t length = 0; length < 40; ++length) {
    interner.add(texts.emplace_back(length, 'x'));
    for (std::size_t position = 0; position < length; ++position) {
      std::string& changed = texts.emplace_back(length, 'x');
      changed[position] = 'y';
      interner.add(changed);
    }
  }
  ASSERT_EQ(interner.size(), texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(interner.find(texts[i]), i);
}

TEST(StringInterner, BatchedLookupsGiveTheSameIds) {
  StringInterner interner;
  std::deque<std::string> texts;
  for (int i = 0; i < 500; ++i) interner.add(texts.emplace_back(std::to_string(i * 7)));
  std::deque<std::string> wanted;
  std::vector<std::string_view> views;
  for (int i = 0; i < 3000; ++i) views.push_back(wanted.emplace_back(i % 100 == 99 ? "" : std::to_string(i)));
  std::vector<std::uint32_t> ids(views.size());
  interner.find(views, ids);
  for (std::size_t i = 0; i < views.size(); ++i) EXPECT_EQ(ids[i], interner.find(views[i])) << views[i];
  EXPECT_EQ(ids[700], 100U);
  EXPECT_EQ(ids[701], StringInterner::none);
}

TEST(StringInterner, BatchedInsertionsGiveTheSameIds) {
  std::deque<std::string> texts;
  std::vector<std::string_view> views;
  for (int i = 0; i < 3000; ++i) views.push_back(texts.emplace_back(std::to_string(i * 7919 % 1100)));
  StringInterner oneByOne;
  StringInterner batched;
  std::vector<std::uint32_t> ids(views.size());
  batched.add(views, ids);
  for (std::size_t i = 0; i < views.size(); ++i) ASSERT_EQ(ids[i], oneByOne.add(views[i])) << views[i];
  EXPECT_EQ(batched.size(), 1100U);
  EXPECT_EQ(batched.find("1099"), oneByOne.find("1099"));
}

TEST(StringInterner, KeepsIdsWhileItGrows) {
  StringInterner interner;
  std::vector<std::string> texts;
  for (int i = 0; i < 5000; ++i) texts.push_back("song " + std::to_string(i * 7919));
  for (std::uint32_t i = 0; i < texts.size(); ++i) EXPECT_EQ(interner.add(texts[i]), i);
  for (std::uint32_t i = 0; i < texts.size(); ++i) EXPECT_EQ(interner.add(texts[i]), i);
  EXPECT_EQ(interner.find(texts[4321]), 4321U);
  EXPECT_EQ(interner.find("song"), StringInterner::none);
  EXPECT_EQ(interner.find(""), StringInterner::none);
  EXPECT_EQ(interner.size(), texts.size());
}

}  // namespace
}  // namespace plimo
