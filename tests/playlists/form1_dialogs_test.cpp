// What the window shows while a dialog of a playlist command is open, and what its keys bring back.
#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

class PlaylistDialogs : public testing::Test {
 protected:
  PlaylistDialogs() {
    program_.program.start();
    for (Picture* handle : {&form_.Picture1, &form_.Picture2, &form_.Picture3}) handle->userClick();
    form_.Picture7.setVisible(false);
    program_.dialogs.whileOpen = [this] {
      ++opened_;
      for (const Picture* handle : {&form_.Picture4, &form_.Picture5, &form_.Picture6}) {
        EXPECT_FALSE(handle->visible()) << "the strip is open";
      }
      EXPECT_EQ(form_.Picture1.visible(), true);
      EXPECT_EQ(form_.Picture2.visible(), songHandle_);
      EXPECT_EQ(form_.Picture3.visible(), playlistHandle_);
      EXPECT_EQ(form_.Picture7.visible(), playPicture_);
    };
  }

  TestProgram program_;
  Form1& form_ = program_.form();
  int opened_ = 0;
  // What is visible while the dialog is open.
  bool songHandle_ = true;
  bool playlistHandle_ = true;
  bool playPicture_ = false;
};

TEST_F(PlaylistDialogs, OpeningFoldsTheStripsAndHidesTheirHandlesBeforeItAsks) {
  songHandle_ = playlistHandle_ = false;
  form_.Picture7.setVisible(true);
  form_.Command3_Click();
  EXPECT_EQ(opened_, 1);
}

TEST_F(PlaylistDialogs, SavingFoldsTheStripsAndHidesItsHandleBeforeItAsks) {
  playlistHandle_ = false;
  form_.Command4_Click();
  EXPECT_EQ(opened_, 1);
}

TEST_F(PlaylistDialogs, AFileThatIsNoPlaylistIsRefusedOverFoldedStrips) {
  playPicture_ = true;
  form_.openPlaylist(R"(C:\Lists\mine.txt)");
  EXPECT_EQ(opened_, 1);
}

TEST(OpeningAPlaylist, ForgetsTheSongsThatWerePlayed) {
  TestProgram program;
  program.addSong(R"(C:\Music\Abba - Waterloo.mp3)");
  program.addSong(R"(C:\Music\Beck - Loser.mp3)");
  program.files.addTextFile(R"(C:\Lists\mine.m3u)", "C:\\Music\\Beck - Loser.mp3\r\n");
  program.program.start();
  Form1& form = program.form();
  form.List3.add("ABBA");  // a song that was played, named as an artist
  form.openPlaylist(R"(C:\Lists\mine.m3u)");
  EXPECT_EQ(form.List2.selectedTexts(), std::vector<std::string_view>{"BECK"});
}

TEST(DroppingASong, ShowsTheListsBesideTheOtherFinalPlaylist) {
  TestProgram program;
  Form1& form = program.form();
  for (ListBox* list : {&form.List1, &form.List2}) list->setVisible(false);
  form.List4.userKey('w');
  for (const ListBox* list : {&form.List1, &form.List2, &form.List6}) EXPECT_TRUE(list->visible());
}

}  // namespace
}  // namespace plimo
