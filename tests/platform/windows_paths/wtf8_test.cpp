#include "platform/windows_paths/wtf8.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

TEST(Wtf8, EveryUnitSurvivesTheWayThereAndBack) {
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    const std::u16string name{u'a', static_cast<char16_t>(unit), u'b'};
    ASSERT_EQ(wtf8ToUtf16(utf16ToWtf8(name)), name) << unit;
  }
}

TEST(Wtf8, EveryPairOfSurrogatesSurvives) {
  for (const char16_t first : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF', u'x'}) {
    for (const char16_t second : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF', u'x'}) {
      const std::u16string name{first, second, first};
      EXPECT_EQ(wtf8ToUtf16(utf16ToWtf8(name)), name);
    }
  }
}

TEST(Wtf8, AValidNameIsUtf8) {
  EXPECT_EQ(utf16ToWtf8(u"Ä€\U0001F3B5.mp3"), "Ä€\U0001F3B5.mp3");
  EXPECT_EQ(wtf8ToUtf16("Ä€\U0001F3B5.mp3"), u"Ä€\U0001F3B5.mp3");
}

TEST(Wtf8, AnUnpairedSurrogateHasThreeBytes) {
  EXPECT_EQ(utf16ToWtf8(std::u16string{u'\xD83D'}), "\xED\xA0\xBD");
  EXPECT_EQ(wtf8ToUtf16("\xED\xA0\xBD"), std::u16string{u'\xD83D'});
}

TEST(Wtf8, EachInvalidByteIsReplaced) {
  for (const std::string bytes : {"\x80", "\xC0", "\xC1", "\xF5", "\xFF", "\xE9"}) {
    EXPECT_EQ(wtf8ToUtf16(bytes), u"\uFFFD");
    EXPECT_EQ(wtf8ToUtf16("a" + bytes + "b", u'?'), u"a?b");
  }
  EXPECT_EQ(wtf8ToUtf16("\xE0\x80\x80", u'?'), u"???") << "overlong";
  EXPECT_EQ(wtf8ToUtf16("\xF0\x80\x80\x80", u'?'), u"????");
  EXPECT_EQ(wtf8ToUtf16("\xF4\x90\x80\x80", u'?'), u"????") << "beyond the last code point";
  EXPECT_EQ(wtf8ToUtf16("\xE2\x82", u'?'), u"??") << "cut off";
}

}  // namespace
}  // namespace plimo
