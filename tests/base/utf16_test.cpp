#include "base/utf16.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

TEST(Utf16, CharactersOfAllLengthsAreConvertedBothWays) {
  const std::string text =
      "a\x7F\xC2\x80\xC3\xA9\xDF\xBF\xE0\xA0\x80\xE6\x9D\xB1\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  const std::u16string units = u"a\x7F\x80\u00E9\u07FF\u0800\u6771\uFFFF\U00010000\U0010FFFF";
  EXPECT_EQ(utf16FromUtf8(text), units);
  EXPECT_EQ(utf8FromUtf16(units), text);
}

TEST(Utf16, UnpairedSurrogatesSurvive) {
  const std::u16string high{u'a', char16_t(0xD83D), u'b'};
  const std::u16string low{char16_t(0xDE00), char16_t(0xD83D)};
  EXPECT_EQ(utf8FromUtf16(high),
            "a\xED\xA0\xBD"
            "b");
  EXPECT_EQ(utf16FromUtf8(utf8FromUtf16(high)), high);
  EXPECT_EQ(utf16FromUtf8(utf8FromUtf16(low)), low);
}

TEST(Utf16, InvalidBytesAreReplacedOneByOne) {
  EXPECT_EQ(utf16FromUtf8("a\xFF\xC3"), u"a\uFFFD\uFFFD");
  EXPECT_EQ(utf16FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD") << "too long for its character";
  EXPECT_EQ(utf16FromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(utf16FromUtf8("\xF4\x90\x80\x80").size(), 4u) << "beyond the last character";
}

}  // namespace
}  // namespace plimo
