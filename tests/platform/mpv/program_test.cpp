// When the whole program, without a screen, loads the sound library.
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "support/linux/permissions.h"
#include "support/player/test_player.h"

namespace plimo {
namespace {

class WholeProgram : public testing::Test {
 protected:
  void SetUp() override {
    const std::string song = songs_.add("a.mp3", 3);
    writeFile(folder_ / "own/plimo.kvx", "\"" + song + "\"\r\n\"Anna\"\r\n\"Don't know!\"\r\n\"a.mp3\"\r\n");
    writeFile(folder_ / "own/default.m3u", song + "\r\n");
    writeFile(winamp_, "#!/bin/sh\ntouch '" + (folder_ / "started") + "'\n");
    changeMode(winamp_, 0755);
    writeFile(folder_ / "own/path.kvx", "\"" + winamp_ + "\"\r\n");
  }
  void TearDown() override {
    if (process_ == 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }

  // It starts compact and plays the default playlist.
  void start(bool byWinamp) {
    writeFile(folder_ / "own/plimo.ini", std::string(byWinamp ? "1" : "0") +
                                             "\r\n#TRUE#\r\n#FALSE#\r\n\"\"\r\n0\r\n1\r\n65535\r\n4194304\r\n65535\r\n"
                                             "4194304\r\n65535\r\n\"4194304\"\r\n");
    std::vector<std::string> commandLine{PLIMO_PROGRAM, "--folder", folder_ / "own", "--drive", "M=" + folder_.path()};
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::vector<char*> arguments;
    for (std::string& argument : commandLine) arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    ASSERT_EQ(::posix_spawn(&process_, PLIMO_PROGRAM, nullptr, nullptr, arguments.data(), environ), 0);
  }

  bool soundLibraryLoaded() const {
    std::ifstream maps("/proc/" + std::to_string(process_) + "/maps");
    return std::string(std::istreambuf_iterator<char>(maps), {}).find("libmpv") != std::string::npos;
  }
  bool running() const { return ::waitpid(process_, nullptr, WNOHANG) == 0; }

  static bool until(const std::function<bool()>& condition) {
    for (int i = 0; i < 3000; ++i) {
      if (condition()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

  Songs songs_;
  TemporaryFolder folder_;
  std::string winamp_ = folder_ / "winamp.exe";
  pid_t process_ = 0;
};

TEST_F(WholeProgram, LoadsTheSoundLibraryWithTheFirstSong) {
  start(false);
  EXPECT_TRUE(until([this] { return soundLibraryLoaded(); }));
  EXPECT_TRUE(running());
}

TEST_F(WholeProgram, DoesNotLoadTheSoundLibraryIfWinampPlays) {
  start(true);
  ASSERT_TRUE(until([this] { return std::filesystem::exists(folder_ / "started"); }));
  EXPECT_FALSE(soundLibraryLoaded());
  EXPECT_TRUE(running());
}

}  // namespace
}  // namespace plimo
