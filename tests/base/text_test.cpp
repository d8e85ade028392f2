#include "base/text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
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

// The simple case foldings (status C and S) of Unicode's published data.
std::map<char32_t, char32_t> publishedFoldings() {
  std::ifstream lines("/usr/share/unicode/CaseFolding.txt");
  EXPECT_TRUE(lines) << "Debian's package unicode-data is not installed";
  std::map<char32_t, char32_t> foldings;
  for (std::string line; std::getline(lines, line);) {
    const std::vector<std::string_view> fields = split(prefixBefore(line, '#'), ';');
    if (fields.size() < 3 || (fields[1] != " C" && fields[1] != " S")) continue;
    const auto codePoint = [](std::string_view field) {
      return static_cast<char32_t>(std::stoul(std::string(field), nullptr, 16));
    };
    foldings[codePoint(fields[0])] = codePoint(fields[2]);
  }
  return foldings;
}

std::string utf8(char32_t codePoint) {
  const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
  if (codePoint < 0x80) return {byte(codePoint)};
  std::string bytes;
  for (; codePoint >= 0x40U >> bytes.size(); codePoint >>= 6)
    bytes.insert(bytes.begin(), byte(0x80 | (codePoint & 0x3F)));
  return byte(0xFF00U >> (bytes.size() + 1) | codePoint) + bytes;
}

TEST(Text, FoldsEveryCodePointAsPublished) {
  const std::map<char32_t, char32_t> foldings = publishedFoldings();
  EXPECT_GT(foldings.size(), 1400U);
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    const auto folding = foldings.find(codePoint);
    const std::string expected = utf8(folding == foldings.end() ? codePoint : folding->second);
    ASSERT_EQ(foldCase(utf8(codePoint)), expected) << "U+" << std::hex << static_cast<unsigned>(codePoint);
  }
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
