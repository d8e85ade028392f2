#include "platform/linux/linux_launcher.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <thread>

#include "base/errors.h"
#include "support/linux/permissions.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

class LinuxLauncherTest : public testing::Test {
 protected:
  int starting(const std::string& program, const std::string& argument) {
    try {
      launcher_.start(program, argument);
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  }

  // What the started script has written.
  std::string written(const std::string& path) {
    for (int i = 0; i < 500; ++i) {
      std::ifstream file(path);
      if (file) return std::string(std::istreambuf_iterator<char>(file), {});
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return "nothing";
  }

  // A program that writes `words`, which the shell expands, to the file "out".
  std::string script(const std::string& words) {
    std::string path = folder_ / "win amp.exe";
    writeFile(path, "#!/bin/sh\nprintf '%s|' " + words + " > '" + (folder_ / "part") + "'\nmv '" + (folder_ / "part") +
                        "' '" + (folder_ / "out") + "'\n");
    changeMode(path, 0755);
    return path;
  }

  TemporaryFolder folder_;
  LinuxLauncher launcher_;
};

TEST_F(LinuxLauncherTest, AProgramGetsItsArgumentUnchanged) {
  EXPECT_EQ(starting(script("$# \"$1\""), "a  b $HOME 'c' ;\xE9"), 0);
  EXPECT_EQ(written(folder_ / "out"), "1|a  b $HOME 'c' ;\xE9|");
}

TEST_F(LinuxLauncherTest, AProgramIsStartedInItsOwnSessionWithoutATerminal) {
  EXPECT_EQ(starting(script("$(sed 's/.*) //' /proc/$$/stat | cut -d' ' -f4) $$ $(readlink /proc/$$/fd/0)"), "x"), 0);
  const std::string text = written(folder_ / "out");
  const std::string session = text.substr(0, text.find('|'));
  EXPECT_EQ(text, session + "|" + session + "|/dev/null|");
}

TEST_F(LinuxLauncherTest, AnEndedProgramDoesNotRemainAsAZombie) {
  EXPECT_EQ(starting(script("$$"), "x"), 0);
  const std::string text = written(folder_ / "out");
  const pid_t process = std::stoi(text);
  bool ended = false;
  for (int i = 0; i < 500 && !ended; ++i) {
    ended = ::kill(process, 0) != 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(ended);
}

TEST_F(LinuxLauncherTest, AProgramThatCannotBeStartedIsAnError) {
  writeFile(folder_ / "plain", "just text");
  writeFile(folder_ / "garbage", "just text");
  changeMode(folder_ / "garbage", 0755);
  EXPECT_EQ(starting(folder_ / "missing", "x"), 53);
  EXPECT_EQ(starting(folder_ / "plain/x", "x"), 53);
  EXPECT_EQ(starting(folder_.path(), "x"), 53);
  EXPECT_EQ(starting(folder_ / "plain", "x"), 70);
  EXPECT_EQ(starting(folder_ / "garbage", "x"), 70);
}

}  // namespace
}  // namespace plimo
