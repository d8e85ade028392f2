#include "scenario/literals.h"

#include <gtest/gtest.h>

namespace plimo::scenario {
namespace {

TEST(Literals, NumbersAreDecimalOnly) {
  EXPECT_EQ(parseInteger("-12"), -12);
  EXPECT_EQ(parseInteger("007"), 7);
  for (const char* word : {"", "+1", "0x10", "1.5", "12a", " 1", "99999999999999999999"}) {
    EXPECT_FALSE(parseInteger(word)) << word;
  }
  EXPECT_EQ(parseDecimal("205.4"), 205.4);
  EXPECT_EQ(parseDecimal("-0.5"), -0.5);
  for (const char* word : {"", "-", "1e3", "inf", "nan", ".5", "1.", "1.2.3", "--1"}) {
    EXPECT_FALSE(parseDecimal(word)) << word;
  }
}

TEST(Literals, QuotedTextShowsControlCharacters) { EXPECT_EQ(quoted("a\r\n\"b\""), R"("a<CR><LF>""b""")"); }

}  // namespace
}  // namespace plimo::scenario
