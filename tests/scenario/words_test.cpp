#include "scenario/words.h"

#include <gtest/gtest.h>

namespace plimo::scenario {
namespace {

using Words = std::vector<std::string>;

std::string unreadableWord(std::string_view line) {
  try {
    wordsOf(line);
  } catch (const Unreadable& bad) {
    return bad.word;
  }
  return {};
}

TEST(Words, BlanksAndTabsPartThem) { EXPECT_EQ(wordsOf("  click\tCommand1  "), (Words{"click", "Command1"})); }

TEST(Words, QuotesKeepBlanksAndBackslashes) {
  EXPECT_EQ(wordsOf(R"(file "C:\My Music\\x.mp3" 12)"), (Words{"file", R"(C:\My Music\\x.mp3)", "12"}));
}

TEST(Words, ADoubledQuoteInsideQuotesIsOne) {
  EXPECT_EQ(wordsOf(R"("say ""hi""" """" "")"), (Words{R"(say "hi")", "\"", ""}));
}

TEST(Words, ACommentEndsTheLineButNotInsideQuotes) {
  EXPECT_EQ(wordsOf("# nothing"), Words{});
  EXPECT_EQ(wordsOf("start# now"), Words{"start"});
  EXPECT_EQ(wordsOf("expect rows List1 \"#1\" # one"), (Words{"expect", "rows", "List1", "#1"}));
}

TEST(Words, AQuoteInTheWrongPlaceCannotBeRead) {
  EXPECT_EQ(unreadableWord("here \"C:\\Plimo"), "\"C:\\Plimo");
  EXPECT_EQ(unreadableWord("here C:\\\"x\""), "C:\\\"x\"");
  EXPECT_EQ(unreadableWord("here \"C:\"\\x"), "\"C:\"\\x");
}

TEST(Words, NumbersAreDecimalAndNothingElse) {
  EXPECT_EQ(wholeNumber("-12"), -12);
  EXPECT_EQ(wholeNumber("007"), 7);
  for (const char* word : {"", "+1", "0x10", "1.5", "12a", " 1", "99999999999999999999"}) {
    EXPECT_FALSE(wholeNumber(word)) << word;
  }
  EXPECT_EQ(decimalNumber("205.4"), 205.4);
  EXPECT_EQ(decimalNumber("-0.5"), -0.5);
  for (const char* word : {"", "-", "1e3", "inf", "nan", ".5", "1.", "1.2.3", "--1"}) {
    EXPECT_FALSE(decimalNumber(word)) << word;
  }
}

TEST(Words, WhatIsNotSeenIsMadeVisible) { EXPECT_EQ(quoted("a\r\n\"b\""), R"("a<CR><LF>""b""")"); }

}  // namespace
}  // namespace plimo::scenario
