#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/string_interner.h"

namespace plimo {
namespace {

TEST(Text, OnlyBlanksAreTrimmed) {
  EXPECT_EQ(trimBlanks("  a b "), "a b");
  EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
  EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Text, UpperCasingChangesOnlyAToZ) { EXPECT_EQ(upperAscii("abz é {~"), "ABZ é {~"); }

TEST(Text, FoldingKnowsTheLettersOfManyScripts) {
  EXPECT_EQ(foldCase("ÀÉŐ ΑΒΓ ЖЯ Ǆ"), foldCase("àéő αβγ жя ǆ"));
  EXPECT_EQ(foldCase("straße"), "straße");
  EXPECT_EQ(foldCase("\xFF\xC3"), "\xFF\xC3");
}

TEST(Text, FoldedLettersMayTakeMoreBytesOrFewer) {
  EXPECT_EQ(foldCase("\u023A\u023E"), "\u2C65\u2C66");
  EXPECT_EQ(foldCase("\u212A\u017F"), "ks");
  std::string large;
  std::string small;
  for (int i = 0; i < 100; ++i) {
    large += "\u023A";
    small += "\u2C65";
  }
  EXPECT_EQ(foldCase(large), small);
  EXPECT_EQ(foldCase("ABCDEFGHIJ" + large + "\xC8"), "abcdefghij" + small + "\xC8");
}

TEST(Text, ComparingIsTheSameAsFoldingBoth) {
  const std::vector<std::string> texts = {"", "a", "A", "ab", "b", "Z", "[", "é", "É", "e", "zz", "\xFF", "aé", "Aé"};
  for (const std::string& left : texts) {
    for (const std::string& right : texts) {
      const int byFold = foldCase(left).compare(foldCase(right));
      const int compared = compareFolded(left, right);
      EXPECT_EQ(byFold < 0, compared < 0) << left << " " << right;
      EXPECT_EQ(byFold == 0, compared == 0) << left << " " << right;
    }
  }
}

TEST(Text, SplittingGivesAlwaysAPiece) {
  EXPECT_EQ(split("", ':'), (std::vector<std::string_view>{""}));
  EXPECT_EQ(split("C:E:", ':'), (std::vector<std::string_view>{"C", "E", ""}));
  EXPECT_EQ(prefixBefore("a.b.c", '.'), "a");
  EXPECT_EQ(prefixBefore("abc", '.'), "abc");
}

TEST(Text, WhatIsShownIsValid) {
  EXPECT_EQ(toValidUtf8("caf\xE9 \xC3\xA9"), "caf\xEF\xBF\xBD \xC3\xA9");
  EXPECT_EQ(toValidUtf8("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(StringInterner, NumbersDistinctTextsInOrder) {
  StringInterner index;
  std::vector<std::string> texts;
  for (int i = 0; i < 5000; ++i) texts.push_back("song " + std::to_string(i * 7919));
  for (std::uint32_t i = 0; i < texts.size(); ++i) EXPECT_EQ(index.add(texts[i]), i);
  for (std::uint32_t i = 0; i < texts.size(); ++i) EXPECT_EQ(index.add(texts[i]), i);
  EXPECT_EQ(index.find(texts[4321]), 4321U);
  EXPECT_EQ(index.find("song"), StringInterner::none);
  EXPECT_EQ(index.find(""), StringInterner::none);
  EXPECT_EQ(index.size(), texts.size());
}

}  // namespace
}  // namespace plimo
