// The player as the user works it.
#include "desktop/widgets/player_strip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include "desktop/theme/strings.h"
#include "desktop/widgets/elided_label.h"
#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::ElementsAre;

class Strip : public testing::Test {
 protected:
  QToolButton* button(const char* name) { return strip.findChild<QToolButton*>(QLatin1String(name)); }
  QSlider* slider(const char* name) { return strip.findChild<QSlider*>(QLatin1String(name)); }
  std::string text(const char* name) { return strip.findChild<QLabel*>(QLatin1String(name))->text().toStdString(); }
  void press(Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&strip, &event);
  }
  // Two songs that are long enough for all that a test does.
  void openTwo() {
    test.player.open(songs.list({songs.add("a.mp3", 30.5), songs.add("b.mp3", 30.5)}));
    ASSERT_TRUE(test.untilNewStreams(1));
  }

  Songs songs;
  TestPlayer test;
  PlayerStrip strip{test.player, nullptr};
};

TEST_F(Strip, WithNothingOpenOnlyTheVolumeCanBeUsed) {
  EXPECT_EQ(text("playerSong"), "Nothing is playing");
  EXPECT_EQ(text("playerTimes"), "");
  for (const char* name : {"playerPrevious", "playerPlay", "playerStop", "playerNext"}) {
    EXPECT_FALSE(button(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(slider("playerSeek")->isEnabled());
  EXPECT_TRUE(slider("playerVolume")->isEnabled());
  EXPECT_TRUE(button("playerMute")->isEnabled());
}

TEST_F(Strip, ShowsTheSongItsPlaceInTheListAndItsTimes) {
  openTwo();
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));
  EXPECT_EQ(text("playerSong"), "1 / 2   a.mp3");
  EXPECT_EQ(text("playerTimes"), "0:00 / 0:30");
  EXPECT_EQ(text("playerNote"), "");
}

TEST_F(Strip, PausesAndGoesOn) {
  openTwo();
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));
  EXPECT_EQ(button("playerPlay")->toolTip(), QStringLiteral("Pause"));
  button("playerPlay")->click();
  ASSERT_TRUE(test.until([&] { return test.state().paused; }));
  test.settle();
  const double position = test.player.currentPosition();
  test.settle();
  EXPECT_NEAR(test.player.currentPosition(), position, 0.05);
  EXPECT_EQ(button("playerPlay")->toolTip(), QStringLiteral("Play"));
  button("playerPlay")->click();
  EXPECT_TRUE(test.until([&] { return test.player.currentPosition() > position + 0.05; }));
}

TEST_F(Strip, StopsAndPlaysTheSameSongAgain) {
  openTwo();
  button("playerNext")->click();
  ASSERT_TRUE(test.untilNewStreams(2));
  button("playerStop")->click();
  EXPECT_EQ(test.player.currentPosition(), 0);
  EXPECT_FALSE(button("playerStop")->isEnabled());
  button("playerPlay")->click();
  ASSERT_TRUE(test.untilNewStreams(3));
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3", "b.mp3"));
}

TEST_F(Strip, GoesToTheNextAndThePreviousSong) {
  openTwo();
  EXPECT_TRUE(button("playerNext")->isEnabled());
  button("playerNext")->click();
  ASSERT_TRUE(test.untilNewStreams(2));
  EXPECT_FALSE(button("playerNext")->isEnabled()) << "the last song";
  button("playerPrevious")->click();
  ASSERT_TRUE(test.untilNewStreams(3));
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3", "a.mp3"));
}

TEST_F(Strip, PreviousBeginsTheSongAgainLaterThanThreeSecondsIntoIt) {
  openTwo();
  button("playerNext")->click();
  ASSERT_TRUE(test.untilNewStreams(2));
  test.player.seek(20);
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 20; }));
  button("playerPrevious")->click();
  EXPECT_TRUE(test.until([&] { return test.player.currentPosition() > 0 && test.player.currentPosition() < 10; }));
  test.settle();
  EXPECT_EQ(test.state().song, "b.mp3");
}

TEST_F(Strip, TheWayGoesToAnyPlaceInTheSong) {
  openTwo();
  QSlider* way = slider("playerSeek");
  EXPECT_TRUE(way->isEnabled());
  way->setValue(way->maximum() / 2);
  EXPECT_TRUE(test.until([&] { return test.player.currentPosition() > 15.3; })) << "plays on from there";
  EXPECT_LT(test.player.currentPosition(), 25);
  way->setValue(way->maximum() - 1);
  EXPECT_TRUE(test.untilNewStreams(2)) << "the end of a song is the beginning of the next";
  EXPECT_EQ(test.state().song, "b.mp3");
}

TEST_F(Strip, SeekingOutsideASongStaysInIt) {
  openTwo();
  test.player.playOrPause();
  ASSERT_TRUE(test.until([&] { return test.state().paused; }));
  test.player.seek(-5);
  EXPECT_EQ(test.player.currentPosition(), 0);
  test.player.seek(1e9);
  EXPECT_EQ(test.player.currentPosition(), test.player.duration());
}

TEST_F(Strip, ASongInPauseMayBeLeftAndTheNextOnePlays) {
  openTwo();
  button("playerPlay")->click();
  ASSERT_TRUE(test.until([&] { return test.state().paused; }));
  button("playerNext")->click();
  ASSERT_TRUE(test.untilNewStreams(2));
  EXPECT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));
}

TEST_F(Strip, VolumeAndMuteAreKeptFromSongToSong) {
  slider("playerVolume")->setValue(30);
  button("playerMute")->click();
  openTwo();
  EXPECT_EQ(test.state().volume, 30);
  EXPECT_TRUE(test.state().muted);
  EXPECT_TRUE(button("playerMute")->isChecked());
  button("playerMute")->click();
  EXPECT_FALSE(test.state().muted);
  EXPECT_FALSE(button("playerMute")->isChecked());
  test.player.setVolume(1000);
  EXPECT_EQ(slider("playerVolume")->value(), 100);
  test.player.setVolume(-1);
  EXPECT_EQ(slider("playerVolume")->value(), 0);
}

TEST_F(Strip, ShowControlsShowsAndHidesTheButtons) {
  test.player.setShowControls(false);
  for (const char* name : {"playerPrevious", "playerPlay", "playerStop", "playerNext"}) {
    EXPECT_TRUE(button(name)->isHidden()) << name;
  }
  EXPECT_FALSE(slider("playerSeek")->isHidden());
  test.player.setShowControls(true);
  EXPECT_FALSE(button("playerPlay")->isHidden());
}

TEST_F(Strip, NotEnabledNothingOfItCanBeUsed) {
  openTwo();
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));
  test.player.setEnabled(false);
  for (const char* name : {"playerPrevious", "playerPlay", "playerStop", "playerNext", "playerMute"}) {
    EXPECT_FALSE(button(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(slider("playerSeek")->isEnabled());
  EXPECT_FALSE(slider("playerVolume")->isEnabled());
  press(Qt::Key_MediaNext);
  press(Qt::Key_MediaStop);
  test.settle();
  EXPECT_EQ(test.state().song, "a.mp3");
  EXPECT_TRUE(test.state().opened);
  test.player.setEnabled(true);
  EXPECT_TRUE(button("playerStop")->isEnabled());
}

TEST_F(Strip, TheKeyboardsPlayerKeysWork) {
  openTwo();
  press(Qt::Key_MediaNext);
  ASSERT_TRUE(test.untilNewStreams(2));
  EXPECT_EQ(test.state().song, "b.mp3");
  press(Qt::Key_MediaPrevious);
  ASSERT_TRUE(test.untilNewStreams(3));
  press(Qt::Key_MediaTogglePlayPause);
  EXPECT_TRUE(test.until([&] { return test.state().paused; }));
  press(Qt::Key_MediaStop);
  EXPECT_FALSE(test.state().opened);
}

TEST_F(Strip, SaysWhyASongIsNotPlayed) {
  test.player.open(songs / "gone.mp3");
  EXPECT_EQ(text("playerNote"), "Skipped gone.mp3: the file is gone.");
  EXPECT_EQ(text("playerSong"), "Nothing is playing");
}

TEST_F(Strip, KeepsTheReasonOfASkipVisibleInANarrowStrip) {
  test.player.open(songs / (std::string(200, 'x') + ".mp3"));
  auto* const note = static_cast<ElidedLabel*>(strip.findChild<QLabel*>(QStringLiteral("playerNote")));
  note->resize(300, note->sizeHint().height());
  EXPECT_LT(note->shownText().size(), note->text().size());
  EXPECT_TRUE(note->shownText().endsWith(QStringLiteral("the file is gone."))) << note->shownText().toStdString();
}

TEST_F(Strip, ASearchThroughManyBadSongsCanBeStopped) {
  test.player.open(songs.list(std::vector<std::string>(5000, "/gone.mp3")));
  EXPECT_TRUE(button("playerStop")->isEnabled());
  button("playerStop")->click();
  EXPECT_FALSE(test.state().searching);
}

TEST_F(Strip, AtTheEndOfTheListPlayBeginsItAgain) {
  test.player.open(songs.list({songs.add("a.mp3"), songs.add("b.mp3"), songs / "gone.mp3"}));
  ASSERT_TRUE(test.untilEnd());
  button("playerPlay")->click();
  ASSERT_TRUE(test.untilNewStreams(3));
  EXPECT_EQ(test.played.back(), "a.mp3");
}

TEST(ClockText, WritesMinutesAndHours) {
  EXPECT_EQ(clockText(0), QStringLiteral("0:00"));
  EXPECT_EQ(clockText(65.9), QStringLiteral("1:05"));
  EXPECT_EQ(clockText(3600 + 62), QStringLiteral("1:01:02"));
  EXPECT_EQ(clockText(-1), QStringLiteral("0:00"));
}

TEST(StripWithoutAnEngine, SaysWhatIsMissing) {
  Songs songs;
  TestPlayer test([](const EngineHost&, std::string& problem) -> std::unique_ptr<SongEngine> {
    problem = "Nothing can be played here: the sound library is missing.";
    return nullptr;
  });
  PlayerStrip strip(test.player, nullptr);
  test.player.open(songs.add("a.mp3"));
  EXPECT_EQ(strip.findChild<QLabel*>(QStringLiteral("playerNote"))->text(),
            QStringLiteral("Nothing can be played here: the sound library is missing."));
  strip.findChild<QToolButton*>(QStringLiteral("playerPlay"))->click();
  EXPECT_FALSE(test.state().opened);
}

}  // namespace
}  // namespace plimo
