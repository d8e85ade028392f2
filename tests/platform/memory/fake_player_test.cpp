// The fake player and launcher, which record calls.
#include "platform/memory/fake_player.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "platform/memory/fake_file_system.h"
#include "platform/memory/fake_launcher.h"

namespace plimo {
namespace {

TEST(FakePlayer, PlaysWhatIsOpenedOnlyWithAutoStart) {
  FakePlayer player;
  player.setAutoStart(true);
  player.open("C:\\list.m3u");
  EXPECT_EQ(player.state(), FakePlayer::State::playing);
  player.stop();
  EXPECT_EQ(player.state(), FakePlayer::State::stopped);
  player.setAutoStart(false);
  player.open("C:\\a.mp3");
  EXPECT_EQ(player.state(), FakePlayer::State::stopped);
  EXPECT_EQ(player.opened(), (std::vector<std::string>{"C:\\list.m3u", "C:\\a.mp3"}));
}

TEST(FakePlayer, SettingTheFileNameOpensNothing) {
  FakePlayer player;
  player.setFileName("c:\\");
  EXPECT_EQ(player.fileName(), "c:\\");
  EXPECT_TRUE(player.opened().empty());
}

TEST(FakePlayer, RaisesNewStream) {
  FakePlayer player;
  player.announceStream();
  int calls = 0;
  player.newStream = [&] { ++calls; };
  player.announceStream();
  EXPECT_EQ(calls, 1);
}

TEST(FakeLauncher, RecordsTheCommandLinesOfExistingPrograms) {
  FakeFileSystem files;
  files.addFile("C:\\Winamp\\winamp.exe");
  FakeLauncher launcher(files);
  launcher.start("c:\\winamp\\WINAMP.EXE", "C:\\PLIMO\\list.m3u");
  ASSERT_EQ(launcher.started().size(), 1U);
  EXPECT_EQ(launcher.started()[0].commandLine, "c:\\winamp\\WINAMP.EXE C:\\PLIMO\\list.m3u");
  EXPECT_TRUE(launcher.started()[0].minimised);
}

TEST(FakeLauncher, AMissingProgramIsAnErrorAndStartsNothing) {
  FakeFileSystem files;
  FakeLauncher launcher(files);
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
