// The player and the launcher that only keep what they were told.
#include "platform/memory/memory_player.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "platform/memory/memory_files.h"
#include "platform/memory/memory_launcher.h"

namespace plimo {
namespace {

TEST(MemoryPlayer, PlaysWhatIsOpenedOnlyWithAutoStart) {
  MemoryPlayer player;
  player.setAutoStart(true);
  player.open("C:\\list.m3u");
  EXPECT_EQ(player.state(), MemoryPlayer::State::playing);
  player.stop();
  EXPECT_EQ(player.state(), MemoryPlayer::State::stopped);
  player.setAutoStart(false);
  player.open("C:\\a.mp3");
  EXPECT_EQ(player.state(), MemoryPlayer::State::stopped);
  EXPECT_EQ(player.opened(), (std::vector<std::string>{"C:\\list.m3u", "C:\\a.mp3"}));
}

TEST(MemoryPlayer, AFileNameIsNotAnOpening) {
  MemoryPlayer player;
  player.setFileName("c:\\");
  EXPECT_EQ(player.fileName(), "c:\\");
  EXPECT_TRUE(player.opened().empty());
}

TEST(MemoryPlayer, AnnouncesAStreamToWhoeverListens) {
  MemoryPlayer player;
  player.announceStream();
  int heard = 0;
  player.newStream = [&] { ++heard; };
  player.announceStream();
  EXPECT_EQ(heard, 1);
}

TEST(MemoryLauncher, KeepsTheCommandLinesOfProgramsThatThereAre) {
  MemoryFiles files;
  files.addFile("C:\\Winamp\\winamp.exe");
  MemoryLauncher launcher(files);
  launcher.start("c:\\winamp\\WINAMP.EXE", "C:\\PLIMO\\list.m3u");
  ASSERT_EQ(launcher.started().size(), 1U);
  EXPECT_EQ(launcher.started()[0].commandLine, "c:\\winamp\\WINAMP.EXE C:\\PLIMO\\list.m3u");
  EXPECT_TRUE(launcher.started()[0].minimised);
}

TEST(MemoryLauncher, AMissingProgramIsAnErrorAndStartsNothing) {
  MemoryFiles files;
  MemoryLauncher launcher(files);
  try {
    launcher.start("C:\\winamp.exe", "x");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::fileNotFound);
    EXPECT_EQ(error.path(), "C:\\winamp.exe");
  }
  EXPECT_TRUE(launcher.started().empty());
}

}  // namespace
}  // namespace plimo
