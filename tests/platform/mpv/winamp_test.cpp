// Passing songs to Winamp with real files and a script in place of Winamp.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "app/program.h"
#include "base/quoted_format.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/linux_launcher.h"
#include "support/linux/permissions.h"
#include "support/temporary_folder.h"
#include "support/test_program.h"

namespace plimo {
namespace {

class Winamp : public testing::Test {
 protected:
  void SetUp() override {
    makeFolders(own_);
    std::filesystem::current_path(own_);
    writeFile(winamp_, "#!/bin/sh\nprintf '%s|%s' $# \"$1\" > '" + folder_.path() + "/part'\nmv '" + folder_.path() +
                           "/part' '" + outputPath_ + "'\n");
    changeMode(winamp_, 0755);
    std::string kept;
    writeText(kept, winamp_);
    writeFile(own_ + "/path.kvx", kept);
    writeFile(own_ + "/plimo.ini",
              "1\r\n#TRUE#\r\n#FALSE#\r\n\"\"\r\n0\r\n0\r\n65535\r\n4194304\r\n65535\r\n4194304\r\n65535\r\n"
              "\"4194304\"\r\n");
    writeFile(song_, "x");
    std::string catalogue;
    appendRecord(catalogue, {song_, "Anna", "Don't know!", "it's & so.mp3"});
    writeFile(own_ + "/plimo.kvx", catalogue);
  }
  void TearDown() override { std::filesystem::current_path("/"); }

  void start() {
    program_.start();
    form().List4.add("it's & so");
    form().List1.add("it's & so");
  }

  Form1& form() { return program_.form1(); }

  // The number of arguments and the first of them, once the script has written them.
  std::string arguments() {
    for (int i = 0; i < 3000; ++i) {
      std::ifstream file(outputPath_);
      if (file) return std::string(std::istreambuf_iterator<char>(file), {});
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return "nothing";
  }

  TemporaryFolder folder_;
  std::string own_ = folder_ / "my own folder";
  std::string winamp_ = folder_ / "Program Files (x86)/\"Win  amp\"/winamp.exe";
  std::string song_ = folder_ / "My $HOME Songs/it's & so.mp3";
  std::string outputPath_ = folder_ / "told";
  LinuxFiles files_{std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}};
  LinuxLauncher launcher_;
  FakePlayer player_;
  TestDialogs dialogs_;
  QuietProgress progress_;
  Program program_{Platform{files_, player_, dialogs_, launcher_, progress_}};
};

TEST_F(Winamp, ThePlayQueueIsPassedAsAPlaylist) {
  start();
  form().Picture7.userClick();
  EXPECT_EQ(arguments(), "1|" + own_ + "/list.m3u");
  std::ifstream list(own_ + "/list.m3u", std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(list), {}), song_ + "\r\n");
  EXPECT_FALSE(dialogs_.hasMessageOrReport());
}

TEST_F(Winamp, ASingleSongIsPassedByItsPath) {
  start();
  form().List1.userMoveCurrent(0);
  form().play.userClick();
  EXPECT_EQ(arguments(), "1|" + song_);
  EXPECT_FALSE(dialogs_.hasMessageOrReport());
}

TEST_F(Winamp, TheDefaultPlaylistIsPassedByItsPath) {
  writeFile(own_ + "/default.m3u", song_ + "\r\n");
  start();
  form().playdefaultlist();
  EXPECT_EQ(arguments(), "1|" + own_ + "/default.m3u");
  EXPECT_FALSE(dialogs_.hasMessageOrReport());
}

}  // namespace
}  // namespace plimo
