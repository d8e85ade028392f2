// The message of a later program as bytes.
#include "platform/shared/start_message.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

TEST(StartMessages, AreReadAsTheyWereWritten) {
  for (const StartMessage& message :
       {StartMessage{}, StartMessage{"token", "/music/Caf\xE9 \"1\".m3u", 3}, StartMessage{"", "/a\nb.m3u", 0}}) {
    const auto read = decodedStartMessage(encoded(message));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->token, message.token);
    EXPECT_EQ(read->file, message.file);
    EXPECT_EQ(read->others, message.others);
  }
}

TEST(StartMessages, ThatAreIncompleteOrForeignAreRefused) {
  const std::string whole = encoded({"token", "/a.m3u", 12});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(decodedStartMessage(whole.substr(0, size))) << size;
  }
  EXPECT_FALSE(decodedStartMessage("plimo start 2" + whole.substr(13)));
  std::string number = whole;
  number.replace(whole.size() - 3, 2, "-1");
  EXPECT_FALSE(decodedStartMessage(number));
}

}  // namespace
}  // namespace plimo
