#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace plimo {
namespace {

TEST(Text, TrimsOnlyBlanks) {
  EXPECT_EQ(trimBlanks("  a b "), "a b");
  EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
  EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Text, UpperAsciiChangesOnlyAToZ) { EXPECT_EQ(upperAscii("abz é {~"), "ABZ é {~"); }

TEST(Text, FoldsTheLettersOfManyScripts) {
  EXPECT_EQ(foldCase("ÀÉŐ ΑΒΓ ЖЯ Ǆ"), foldCase("àéő αβγ жя ǆ"));
  EXPECT_EQ(foldCase("straße"), "straße");
  EXPECT_EQ(foldCase("\xFF\xC3"), "\xFF\xC3");
}

TEST(Text, FoldedLettersMayHaveADifferentLength) {
  EXPECT_EQ(foldCase("\u023A\u023E"), "\u2C65\u2C66");
  EXPECT_EQ(foldCase("\u212A\u017F"), "ks");
  std::string upper;
  std::string lower;
  for (int i = 0; i < 100; ++i) {
    upper += "\u023A";
    lower += "\u2C65";
  }
  EXPECT_EQ(foldCase(upper), lower);
  EXPECT_EQ(foldCase("ABCDEFGHIJ" + upper + "\xC8"), "abcdefghij" + lower + "\xC8");
}

TEST(Text, CompareFoldedAgreesWithFoldCase) {
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

TEST(Text, SplitReturnsAtLeastOnePart) {
  EXPECT_EQ(split("", ':'), (std::vector<std::string_view>{""}));
  EXPECT_EQ(split("C:E:", ':'), (std::vector<std::string_view>{"C", "E", ""}));
  EXPECT_EQ(prefixBefore("a.b.c", '.'), "a");
  EXPECT_EQ(prefixBefore("abc", '.'), "abc");
}

TEST(Text, ToValidUtf8ReplacesInvalidBytes) {
  EXPECT_EQ(toValidUtf8("caf\xE9 \xC3\xA9"), "caf\xEF\xBF\xBD \xC3\xA9");
  EXPECT_EQ(toValidUtf8("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

}  // namespace
}  // namespace plimo
