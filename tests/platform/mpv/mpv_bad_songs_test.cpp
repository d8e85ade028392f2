// A song that only Linux can have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/player/test_player.h"

namespace plimo {
namespace {

TEST(MpvBadSongs, APipeIsSkippedWithoutWaitingForIt) {
  Songs songs;
  TestPlayer test;
  ASSERT_EQ(::mkfifo((songs / "pipe.mp3").c_str(), 0600), 0);
  test.player.open(songs.list({songs / "pipe.mp3", songs.add("good.mp3")}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, testing::ElementsAre("good.mp3"));
  EXPECT_THAT(test.notes, testing::ElementsAre("Skipped pipe.mp3: it is not a song."));
}

}  // namespace
}  // namespace plimo
