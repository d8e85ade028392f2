// Playing valid songs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>

#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;

constexpr double tolerance = 0.1;  // seconds

class MpvPlaying : public testing::Test {
 protected:
  Songs songs;
};

TEST_F(MpvPlaying, AListPlaysToItsEndAndEachSongIsReportedOnce) {
  const auto list = songs.list({songs.add("a.mp3", 0.3), songs.add("b.mp3", 0.6), songs.add("c.mp3", 0.3)});
  TestPlayer test;
  test.player.open(list);
  EXPECT_EQ(test.state().count, 3u);
  double furthest = 0;
  EXPECT_TRUE(test.until([&] {
    furthest = std::max(furthest, test.player.currentPosition());
    return !test.state().opened;
  }));
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3", "c.mp3"));
  EXPECT_THAT(test.lengths,
              ElementsAre(DoubleNear(0.3, tolerance), DoubleNear(0.6, tolerance), DoubleNear(0.3, tolerance)));
  EXPECT_GT(furthest, 0);
  EXPECT_LT(furthest, 0.6 + tolerance);
  EXPECT_EQ(test.note(), "");
}

TEST_F(MpvPlaying, ASongPlaysInRealTimeWithOrWithoutASoundDevice) {
  TestPlayer test;
  test.player.open(songs.add("a.mp3", 1));
  ASSERT_TRUE(test.untilNewStreams(1));
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_TRUE(test.untilEnd());
  EXPECT_GT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
}

TEST_F(MpvPlaying, WithNothingOpenDurationAndPositionAreZero) {
  TestPlayer test;
  const auto nothing = [&] {
    return test.player.duration() == 0 && test.player.currentPosition() == 0 && !std::signbit(test.player.duration()) &&
           !std::signbit(test.player.currentPosition()) && !test.state().opened;
  };
  EXPECT_TRUE(nothing()) << "initially";
  test.player.stop();
  EXPECT_TRUE(nothing()) << "stopped";
  test.player.open(songs.list({}));
  EXPECT_TRUE(nothing()) << "an empty list";
  EXPECT_EQ(test.note(), "");
  test.player.open(songs.add("a.mp3", 2));
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));
  test.player.stop();
  EXPECT_TRUE(nothing()) << "stopped while playing";
  test.settle();
  EXPECT_TRUE(nothing()) << "some time later";
  EXPECT_EQ(test.lengths.size(), 1u);
}

TEST_F(MpvPlaying, APositionIsNeverNegative) {
  TestPlayer test;
  test.player.open(songs.add("a.mp3", 0.5));
  bool negative = false;
  EXPECT_TRUE(test.until([&] {
    negative = negative || std::signbit(test.player.currentPosition());
    return !test.state().opened;
  }));
  EXPECT_FALSE(negative);
}

TEST_F(MpvPlaying, AfterTheLastSongItsDurationAndPositionRemain) {
  TestPlayer test;
  test.player.open(songs.add("a.mp3", 0.5));
  ASSERT_TRUE(test.untilEnd());
  EXPECT_NEAR(test.player.duration(), 0.5, tolerance);
  EXPECT_GT(test.player.currentPosition(), 0);
}

TEST_F(MpvPlaying, ASongOpenedDuringPlaybackReplacesTheCurrentOne) {
  const auto list = songs.list({songs.add("a.mp3", 3), songs.add("b.mp3", 3)});
  TestPlayer test;
  test.player.open(list);
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.open(songs.add("c.mp3", 0.4));
  EXPECT_TRUE(test.untilEnd());
  test.settle();
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "c.mp3"));
  EXPECT_NEAR(test.lengths.back(), 0.4, tolerance);
}

TEST_F(MpvPlaying, OfManySongsOpenedAtOnceOnlyTheLastIsReported) {
  const std::string longer = songs.add("long.mp3", 3);
  const std::string shorter = songs.add("short.mp3", 0.4);
  TestPlayer test;
  for (int i = 0; i < 20; ++i) test.player.open(i % 2 == 0 ? longer : shorter);
  EXPECT_TRUE(test.untilEnd());
  test.settle();
  EXPECT_THAT(test.lengths, ElementsAre(DoubleNear(0.4, tolerance)));
}

TEST_F(MpvPlaying, ADurationBelongsToItsSongHoweverFastSongsChange) {
  const std::string longer = songs.add("long.mp3", 3);
  const std::string shorter = songs.add("short.mp3", 1);
  TestPlayer test;
  for (std::size_t i = 0; i < 60; ++i) {
    const bool isLonger = i % 2 == 0;
    test.player.open(isLonger ? longer : shorter);
    ASSERT_TRUE(test.untilNewStreams(i + 1)) << i;
    ASSERT_EQ(test.lengths.size(), i + 1);
    ASSERT_NEAR(test.lengths.back(), isLonger ? 3 : 1, tolerance) << i;
  }
}

TEST_F(MpvPlaying, ASongAsLongAsThePreviousOneIsReportedToo) {
  const auto song = songs.add("a.mp3", 0.3);
  TestPlayer test;
  test.player.open(songs.list({song, song, song}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_EQ(test.lengths.size(), 3u);
}

TEST_F(MpvPlaying, ThePlayerCanBeDestroyedAtAnyTime) {
  const auto list = songs.list({songs.add("a.mp3", 0.3), songs.add("b.mp3", 3)});
  for (const std::size_t streams : {0u, 1u, 2u}) {
    TestPlayer test;
    test.player.open(list);
    EXPECT_TRUE(test.untilNewStreams(streams));
  }
  TestPlayer searching;
  searching.player.open(songs.list(std::vector<std::string>(1000, "/gone.mp3")));
  EXPECT_TRUE(searching.state().searching);
}

TEST_F(MpvPlaying, WithoutAutoStartTheSongIsPausedAtItsBeginning) {
  TestPlayer test;
  test.player.setAutoStart(false);
  test.player.open(songs.list({songs.add("a.mp3", 0.3), songs.add("b.mp3", 0.3)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.settle();
  EXPECT_TRUE(test.state().opened);
  EXPECT_TRUE(test.state().paused);
  EXPECT_LT(test.player.currentPosition(), 0.05);
  test.player.playOrPause();
  EXPECT_TRUE(test.untilEnd()) << "playback continues with the next song";
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3"));
}

TEST_F(MpvPlaying, PlaybackContinuesWhileNotListeningAndTheNewStreamIsReportedLater) {
  TestPlayer test;
  test.player.open(songs.list({songs.add("a.mp3", 0.3), songs.add("b.mp3", 3)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.listening = false;
  EXPECT_TRUE(test.until([&] { return test.state().song == "b.mp3" && test.player.currentPosition() > 0; }));
  EXPECT_EQ(test.lengths.size(), 1u);
  test.listening = true;
  test.player.drainEvents();
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3"));
}

TEST_F(MpvPlaying, AHandlerOfNewStreamMayStopOrOpen) {
  const auto other = songs.add("other.mp3", 0.3);
  TestPlayer test;
  int streams = 0;
  test.player.newStream = [&] {
    if (++streams == 1) test.player.open(other);
    if (streams == 2) test.player.stop();
  };
  test.player.open(songs.list({songs.add("a.mp3", 3), songs.add("b.mp3", 3)}));
  EXPECT_TRUE(test.until([&] { return streams == 2; }));
  test.settle();
  EXPECT_EQ(streams, 2);
  EXPECT_FALSE(test.state().opened);
  EXPECT_EQ(test.player.duration(), 0);
}

TEST_F(MpvPlaying, AVeryShortSongIsPlayedWithoutError) {
  TestPlayer test;
  test.player.open(songs.list({songs.add("a.mp3", 0.15), songs.add("b.mp3", 0.3)}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3"));
  EXPECT_THAT(test.notes, ElementsAre());
}

TEST_F(MpvPlaying, ARelativePathIsResolvedAgainstTheCurrentDirectory) {
  const std::string song = songs.add("sub/a.mp3");
  TestPlayer test;
  const std::string relative = std::filesystem::relative(song).string();
  ASSERT_FALSE(std::filesystem::path(relative).is_absolute());
  test.player.open(relative);
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("a.mp3"));
}

}  // namespace
}  // namespace plimo
