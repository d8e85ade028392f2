// The properties that the program sets on the player before it plays.
#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

class Playing : public testing::Test {
 protected:
  void start() {
    test.addSong(R"(C:\Music\Abba - Fernando.mp3)");
    test.program.start();
    form.List1.add(" Fernando");
    form.List4.add(" Fernando");
    test.player.setAutoStart(false);
    test.player.setShowControls(false);
    test.player.setEnabled(false);
  }

  TestProgram test;
  Form1& form = test.form();
};

TEST_F(Playing, PlayingTheListSetsAutoStartAndEnablesThePlayer) {
  start();
  form.Picture7.userClick();
  EXPECT_TRUE(test.player.autoStart());
  EXPECT_TRUE(test.player.enabled());
  EXPECT_EQ(test.player.state(), FakePlayer::State::playing);
  EXPECT_FALSE(test.player.showControls()) << "only one song alone shows the controls";
}

TEST_F(Playing, OneSongAloneShowsTheControlsToo) {
  start();
  form.List1.userMoveCurrent(0);
  form.play.userClick();
  EXPECT_TRUE(test.player.autoStart());
  EXPECT_TRUE(test.player.enabled());
  EXPECT_TRUE(test.player.showControls());
  EXPECT_EQ(test.player.state(), FakePlayer::State::playing);
}

TEST_F(Playing, TheDefaultPlaylistSetsAutoStartAndEnablesThePlayer) {
  test.files.addTextFile(R"(C:\Plimo\default.m3u)", "");
  start();
  form.playdefaultlist();
  EXPECT_TRUE(test.player.autoStart());
  EXPECT_TRUE(test.player.enabled());
  EXPECT_EQ(test.player.state(), FakePlayer::State::playing);
}

TEST_F(Playing, TheCompactViewSetsAutoStart) {
  start();
  form.Compact.userClick();
  EXPECT_TRUE(test.player.autoStart());
  EXPECT_FALSE(test.player.enabled());
}

}  // namespace
}  // namespace plimo
