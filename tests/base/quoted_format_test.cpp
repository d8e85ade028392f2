#include "base/quoted_format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"

namespace plimo {
namespace {

std::vector<std::string> values(std::string_view content) {
  QuotedReader reader(content);
  std::vector<std::string> texts;
  while (!reader.atEnd()) texts.emplace_back(reader.next().text);
  return texts;
}

using Texts = std::vector<std::string>;

TEST(QuotedFormat, ValuesEndAtLineEndsAndCommas) {
  EXPECT_EQ(values("1\r\n#TRUE#\r\n\"C:\"\r\n"), (Texts{"1", "#TRUE#", "C:"}));
  EXPECT_EQ(values("1,#TRUE#,\"C:\",4"), (Texts{"1", "#TRUE#", "C:", "4"}));
  EXPECT_EQ(values("a\nb\rc"), (Texts{"a", "b", "c"}));
}

TEST(QuotedFormat, ReadsValuesOfAnyLength) {
  for (std::size_t length = 250; length < 262; ++length) {
    const std::string value(length, 'x');
    for (const char* end : {",", "\r", "\n", "\r\n"}) {
      const std::string after = std::string(end) + "y" + (*end == ',' ? "\r\n" : ",");
      EXPECT_EQ(values(value + after), (Texts{value, "y"})) << length;
    }
    EXPECT_EQ(values(value), Texts{value});
  }
}

TEST(QuotedFormat, AnEmptyLineIsAnEmptyValue) {
  EXPECT_EQ(values("\r\n\"\"\r\nx"), (Texts{"", "", "x"}));
  EXPECT_EQ(values("a,\r\nb"), (Texts{"a", "", "b"}));
}

TEST(QuotedFormat, QuotedStringsMayContainCommasLineEndsAndQuotes) {
  EXPECT_EQ(values("\"a,b\r\nc\"\r\nd"), (Texts{"a,b\r\nc", "d"}));
  EXPECT_EQ(values("\"say \"\"hi\"\" twice\"\r\n\"\"\"\"\r\n"), (Texts{"say \"hi\" twice", "\""}));
}

TEST(QuotedFormat, SkipsLeadingBlanksAndAByteOrderMark) {
  EXPECT_EQ(values("\xEF\xBB\xBF  \"a\"  \r\n   b "), (Texts{"a", "b "}));
}

TEST(QuotedFormat, AnUnterminatedStringExtendsToTheEnd) { EXPECT_EQ(values("\"half"), (Texts{"half"})); }

TEST(QuotedFormat, ReadingPastTheEndReportsTheFile) {
  QuotedReader reader("1", "C:\\Plimo\\plimo.ini");
  reader.next();
  try {
    reader.next();
    FAIL() << "nothing thrown";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::inputPastEnd);
    EXPECT_EQ(error.path(), "C:\\Plimo\\plimo.ini");
  }
}

TEST(QuotedFormat, ReadsBackWhatItWrites) {
  std::string file;
  writeText(file, "a \"b\", c");
  writeNumber(file, -12);
  writeBoolean(file, false);
  EXPECT_EQ(file, "\"a \"\"b\"\", c\"\r\n-12\r\n#FALSE#\r\n");
  EXPECT_EQ(values(file), (Texts{"a \"b\", c", "-12", "#FALSE#"}));
}

TEST(QuotedFormat, OnlyBareValuesAreHashFramed) {
  QuotedReader reader("#TRUE#,\"#TRUE#\",#");
  EXPECT_TRUE(reader.next().isTrue());
  EXPECT_FALSE(reader.next().isTrue());
  EXPECT_FALSE(reader.next().hashFramed());
}

TEST(QuotedFormat, NumbersAreDecimal) {
  double number = 0;
  EXPECT_TRUE(parseNumber(" 65535 ", number));
  EXPECT_EQ(number, 65535);
  EXPECT_TRUE(parseNumber("-1.5e1", number));
  EXPECT_EQ(number, -15);
  for (const char* text : {"", " ", "x", "1x", "0x10", "-inf", "nan", "--1", "1 2"}) {
    EXPECT_FALSE(parseNumber(text, number)) << text;
  }
}

}  // namespace
}  // namespace plimo
