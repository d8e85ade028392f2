// Playing valid songs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double tolerance = 0.15;  // seconds

class DirectShowPlaying : public testing::Test {
 protected:
  bool untilPositionAbove(double seconds) {
    return test.until([this, seconds] { return test.player.currentPosition() > seconds; });
  }

  Songs songs;
  TestPlayer test;
};

TEST_F(DirectShowPlaying, AListPlaysToItsEndAndEachSongIsReportedOnce) {
  test.player.open(songs.list({songs.add("a.mp3", 0.5), songs.add("b.mp3", 0.8), songs.add("c.mp3", 0.5)}));
  EXPECT_EQ(test.state().count, 3u);
  double furthest = 0;
  EXPECT_TRUE(test.until([&] {
    furthest = std::max(furthest, test.player.currentPosition());
    return !test.state().opened;
  }));
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3", "c.mp3"));
  EXPECT_THAT(test.lengths,
              ElementsAre(DoubleNear(0.5, tolerance), DoubleNear(0.8, tolerance), DoubleNear(0.5, tolerance)));
  EXPECT_GT(furthest, 0);
  EXPECT_LT(furthest, 0.8 + tolerance);
  EXPECT_THAT(test.notes, IsEmpty());
}

TEST_F(DirectShowPlaying, ThePositionAdvances) {
  test.player.open(songs.add("a.mp3", 3));
  ASSERT_TRUE(untilPositionAbove(0));
  const double before = test.player.currentPosition();
  EXPECT_TRUE(untilPositionAbove(before + 0.5));
  EXPECT_NEAR(test.player.duration(), 3, tolerance);
}

TEST_F(DirectShowPlaying, PauseHoldsThePositionAndPlayGoesOn) {
  test.player.open(songs.add("a.mp3", 10));
  ASSERT_TRUE(untilPositionAbove(0.2));
  test.player.playOrPause();
  ASSERT_TRUE(test.until([&] { return test.state().paused; }));
  test.settle();
  const double held = test.player.currentPosition();
  test.settle();
  test.settle();
  EXPECT_NEAR(test.player.currentPosition(), held, 0.02);
  test.player.playOrPause();
  EXPECT_TRUE(untilPositionAbove(held + 0.3));
  EXPECT_FALSE(test.state().paused);
}

TEST_F(DirectShowPlaying, ASeekGoesForwardsAndBackwards) {
  test.player.open(songs.add("a.mp3", 30));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.seek(20);
  EXPECT_TRUE(untilPositionAbove(20.2));
  EXPECT_LT(test.player.currentPosition(), 22);
  test.player.seek(5);
  EXPECT_TRUE(test.until([&] { return test.player.currentPosition() < 10 && test.player.currentPosition() > 5.2; }));
}

TEST_F(DirectShowPlaying, ASeekWhilePausedStaysPaused) {
  test.player.open(songs.add("a.mp3", 30));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.playOrPause();
  ASSERT_TRUE(test.until([&] { return test.state().paused; }));
  test.player.seek(20);
  test.settle();
  test.settle();
  EXPECT_NEAR(test.player.currentPosition(), 20, 0.05);
  test.player.playOrPause();
  EXPECT_TRUE(untilPositionAbove(20.2));
}

TEST_F(DirectShowPlaying, ASeekToTheEndContinuesWithTheNextSong) {
  test.player.open(songs.list({songs.add("a.mp3", 30), songs.add("b.mp3", 30)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.seek(99);
  EXPECT_TRUE(test.untilNewStreams(2));
  EXPECT_EQ(test.state().song, "b.mp3");
  EXPECT_THAT(test.notes, IsEmpty());
}

TEST_F(DirectShowPlaying, StopLeavesNothingOpen) {
  test.player.open(songs.add("a.mp3", 10));
  ASSERT_TRUE(untilPositionAbove(0));
  test.player.stop();
  EXPECT_EQ(test.player.currentPosition(), 0);
  EXPECT_EQ(test.player.duration(), 0);
  test.settle();
  EXPECT_EQ(test.player.currentPosition(), 0);
  EXPECT_FALSE(test.state().opened);
  EXPECT_EQ(test.lengths.size(), 1u);
}

TEST_F(DirectShowPlaying, AStoppedSongIsNoLongerOpen) {
  const std::string song = songs.add("a.mp3", 10);
  test.player.open(song);
  ASSERT_TRUE(untilPositionAbove(0));
  test.player.stop();
  EXPECT_TRUE(test.until([&] {
    std::error_code failed;
    return std::filesystem::remove(song, failed);
  })) << "it can be deleted";
}

TEST_F(DirectShowPlaying, NextAndPreviousGoThroughTheList) {
  test.player.open(songs.list({songs.add("a.mp3", 10), songs.add("b.mp3", 10)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.next();
  ASSERT_TRUE(test.untilNewStreams(2));
  test.player.previous();
  ASSERT_TRUE(test.untilNewStreams(3));
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3", "a.mp3"));
}

TEST_F(DirectShowPlaying, WithoutAutoStartTheSongIsPausedAtItsBeginning) {
  test.player.setAutoStart(false);
  test.player.open(songs.list({songs.add("a.mp3", 0.5), songs.add("b.mp3", 0.5)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.settle();
  EXPECT_TRUE(test.state().opened);
  EXPECT_TRUE(test.state().paused);
  EXPECT_LT(test.player.currentPosition(), 0.05);
  test.player.playOrPause();
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3"));
}

TEST_F(DirectShowPlaying, OfManySongsOpenedAtOnceOnlyTheLastIsReported) {
  const std::string longer = songs.add("long.mp3", 3);
  const std::string shorter = songs.add("short.mp3", 0.5);
  for (int i = 0; i < 20; ++i) test.player.open(i % 2 == 0 ? longer : shorter);
  EXPECT_TRUE(test.untilEnd());
  test.settle();
  EXPECT_THAT(test.lengths, ElementsAre(DoubleNear(0.5, tolerance)));
}

TEST_F(DirectShowPlaying, ADurationBelongsToItsSongHoweverFastSongsChange) {
  const std::string longer = songs.add("long.mp3", 3);
  const std::string shorter = songs.add("short.mp3", 1);
  for (std::size_t i = 0; i < 10; ++i) {
    const bool isLonger = i % 2 == 0;
    test.player.open(isLonger ? longer : shorter);
    ASSERT_TRUE(test.untilNewStreams(i + 1)) << i;
    ASSERT_EQ(test.lengths.size(), i + 1);
    ASSERT_NEAR(test.lengths.back(), isLonger ? 3 : 1, tolerance) << i;
  }
}

TEST_F(DirectShowPlaying, VolumeAndMuteCanBeSetAtAnyTime) {
  test.player.setVolume(0);
  test.player.setMuted(true);
  test.player.open(songs.list({songs.add("a.mp3", 0.5), songs.add("b.mp3", 0.8)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.setVolume(70);
  test.player.setMuted(false);
  EXPECT_TRUE(test.untilEnd());
  EXPECT_EQ(test.state().volume, 70);
  EXPECT_FALSE(test.state().muted);
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3"));
}

TEST_F(DirectShowPlaying, UnusualNamesArePlayed) {
  const std::vector<std::string> names = {"two  blanks.mp3", "\xE6\x9D\xB1.mp3", "caf\xC3\xA9.mp3",
                                          "a#b%41.mp3",      "-option.mp3",      "[list],{set}.mp3"};
  std::vector<std::string> lines;
  for (const auto& name : names) lines.push_back(songs.add(name, 0.3));
  test.player.open(songs.list(lines));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.notes, IsEmpty());
  EXPECT_EQ(test.played, names);
}

TEST_F(DirectShowPlaying, ALongPathIsPlayed) {
  std::string folder;
  for (int i = 0; i < 8; ++i) folder += std::string(40, static_cast<char>('a' + i)) + "/";
  test.player.open(songs.list({songs.add(folder + "long.mp3", 0.5)}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.notes, IsEmpty());
  EXPECT_THAT(test.played, ElementsAre("long.mp3"));
}

TEST(DirectShowPlayer, CanBeDestroyedAtAnyTime) {
  Songs songs;
  const auto list = songs.list({songs.add("a.mp3", 0.3), songs.add("b.mp3", 3)});
  for (const std::size_t streams : {0u, 1u, 2u}) {
    TestPlayer test;
    test.player.open(list);
    EXPECT_TRUE(test.untilNewStreams(streams));
  }
}

}  // namespace
}  // namespace plimo
