#include "scenario/tokenizer.h"

#include <gtest/gtest.h>

#include "scenario/parse_error.h"

namespace plimo::scenario {
namespace {

using Tokens = std::vector<std::string>;

std::string rejectedWord(std::string_view line) {
  try {
    tokenize(line);
  } catch (const ParseError& bad) {
    return bad.word;
  }
  return {};
}

TEST(Tokenizer, SplitsAtBlanksAndTabs) { EXPECT_EQ(tokenize("  click\tCommand1  "), (Tokens{"click", "Command1"})); }

TEST(Tokenizer, KeepsBlanksAndBackslashesInQuotes) {
  EXPECT_EQ(tokenize(R"(file "C:\My Music\\x.mp3" 12)"), (Tokens{"file", R"(C:\My Music\\x.mp3)", "12"}));
}

TEST(Tokenizer, ReadsADoubledQuoteAsOne) {
  EXPECT_EQ(tokenize(R"("say ""hi""" """" "")"), (Tokens{R"(say "hi")", "\"", ""}));
}

TEST(Tokenizer, EndsTheLineAtACommentOutsideQuotes) {
  EXPECT_EQ(tokenize("# nothing"), Tokens{});
  EXPECT_EQ(tokenize("start# now"), Tokens{"start"});
  EXPECT_EQ(tokenize("expect rows List1 \"#1\" # one"), (Tokens{"expect", "rows", "List1", "#1"}));
}

TEST(Tokenizer, RejectsAMisplacedQuote) {
  EXPECT_EQ(rejectedWord("here \"C:\\Plimo"), "\"C:\\Plimo");
  EXPECT_EQ(rejectedWord("here C:\\\"x\""), "C:\\\"x\"");
  EXPECT_EQ(rejectedWord("here \"C:\"\\x"), "\"C:\"\\x");
}

}  // namespace
}  // namespace plimo::scenario
