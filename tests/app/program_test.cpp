// The program's start with a playlist named by its user.
#include "app/program.h"

#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

constexpr const char* playlist = R"(D:\Lists\evening.m3u)";

struct StartedWithPlaylist : testing::Test {
  StartedWithPlaylist() {
    machine.addSong(R"(C:\Music\Alder - Ash.mp3)");
    machine.addSong(R"(C:\Music\Beech - Fir.mp3)");
    machine.files.addTextFile(playlist, "C:\\Music\\Beech - Fir.mp3\r\nC:\\Music\\Alder - Ash.mp3\r\n");
  }

  std::vector<std::string> finalRows() {
    const auto texts = machine.form().List4.texts();
    return {texts.begin(), texts.end()};
  }

  TestProgram machine;
};

TEST_F(StartedWithPlaylist, OpensItAsOpenDoes) {
  machine.program.openAtStart({playlist});
  machine.program.start();
  EXPECT_EQ(finalRows(), (std::vector<std::string>{" Fir", " Ash"}));
  EXPECT_EQ(machine.form().List2.selectedRows().size(), 2U);
  EXPECT_FALSE(machine.form().Picture4.visible());
  EXPECT_TRUE(machine.dialogs.messages.empty());
}

TEST_F(StartedWithPlaylist, ReportsThatItIsMissingAndStaysUsable) {
  machine.program.openAtStart({R"(D:\Lists\gone.m3u)"});
  machine.program.start();
  EXPECT_TRUE(machine.program.running());
  ASSERT_EQ(machine.dialogs.reports.size(), 1U);
}

TEST_F(StartedWithPlaylist, RefusesAFileThatIsNoPlaylist) {
  machine.program.openAtStart({R"(C:\Music\Beech - Fir.mp3)"});
  machine.program.start();
  EXPECT_EQ(machine.dialogs.messages, std::vector<std::string>{"Sorry, you can only open a playlist! Try again!"});
}

TEST_F(StartedWithPlaylist, DoesNotOpenItOnTheFirstRun) {
  machine.files.deleteFile(R"(C:\Plimo\plimo.ini)", Force::yes);
  machine.program.openAtStart({playlist});
  machine.program.start();
  machine.program.splash().Timer1.elapsed();
  EXPECT_TRUE(finalRows().empty());
  EXPECT_TRUE(machine.form().Frame1.visible());
}

TEST(RequestsToOpen, NameTheFirstPlaylistAndCountTheOtherFiles) {
  EXPECT_EQ(requestToOpen({}).file, "");
  const OpenRequest several = requestToOpen({"/a.mp3", "/b.M3U", "/c.m3u"});
  EXPECT_EQ(several.file, "/b.M3U");
  EXPECT_EQ(several.others, 2U);
  EXPECT_EQ(requestToOpen({"/a.mp3", "/b.txt"}).file, "/a.mp3");
}

TEST_F(StartedWithPlaylist, CountsTheFilesThatAreNotOpened) {
  machine.program.openAtStart({playlist, 2});
  machine.program.start();
  EXPECT_EQ(finalRows().size(), 2U);
  EXPECT_EQ(machine.form().status(), "2 more files not opened: one playlist is opened at a time");
}

TEST_F(StartedWithPlaylist, CanOpenAnotherUnlessACommandRunsOrTheMenuIsHidden) {
  EXPECT_FALSE(machine.program.canOpen());
  machine.program.start();
  EXPECT_TRUE(machine.program.canOpen());
  machine.program.dispatcher().run([this] { EXPECT_FALSE(machine.program.canOpen()); });
  machine.form().Preferences_Click();
  EXPECT_FALSE(machine.program.canOpen());
}

TEST_F(StartedWithPlaylist, CannotOpenOneDuringTheFirstRun) {
  machine.files.deleteFile(R"(C:\Plimo\plimo.ini)", Force::yes);
  machine.program.start();
  machine.program.splash().Timer1.elapsed();
  EXPECT_FALSE(machine.program.canOpen());
}

TEST_F(StartedWithPlaylist, PlaysAnOpenedPlaylistFromItsFirstSong) {
  machine.program.start();
  machine.program.open({playlist, 0, true});
  EXPECT_EQ(finalRows(), (std::vector<std::string>{" Fir", " Ash"}));
  EXPECT_EQ(machine.player.opened(), std::vector<std::string>{R"(C:\Plimo\list.m3u)"});
}

TEST_F(StartedWithPlaylist, PlaysNothingFromAPlaylistWithoutSongs) {
  machine.files.addTextFile(playlist, "");
  machine.program.start();
  machine.program.open({playlist, 0, true});
  EXPECT_TRUE(machine.player.opened().empty());
}

TEST_F(StartedWithPlaylist, PlaysASongAloneAndKeepsTheLists) {
  machine.program.openAtStart({playlist});
  machine.program.start();
  machine.program.open({R"(C:\Music\Alder - Ash.mp3)", 0, true});
  EXPECT_EQ(machine.player.opened(), std::vector<std::string>{R"(C:\Music\Alder - Ash.mp3)"});
  EXPECT_EQ(finalRows(), (std::vector<std::string>{" Fir", " Ash"}));
  EXPECT_TRUE(machine.form().MediaPlayer1.visible());
}

}  // namespace
}  // namespace plimo
