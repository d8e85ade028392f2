#include "platform/windows/windows_launcher.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <optional>
#include <thread>

#include "base/errors.h"
#include "platform/windows/native_path.h"
#include "platform/windows/windows_files.h"
#include "support/temporary_folder.h"
#include "support/windows/disk.h"

namespace plimo {
namespace {

class WindowsLauncherTest : public testing::Test {
 protected:
  // A copy of the program that records its command line.
  std::string recorder(const std::string& name) {
    std::string path = folder_ / name;
    makeFolders(files_.folderOf(path));
    FileSystemObject& files = files_;
    files.copyFile(PLIMO_RECORDER, path, true);
    return path;
  }

  // What the program in this folder has recorded; waits for it.
  std::optional<std::string> record(const std::string& folder) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (;;) {
      auto text = readFile(folder_ / (folder + "/record.txt"));
      if (text || std::chrono::steady_clock::now() > deadline) return text;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  }

  int starting(const std::string& program, const std::string& argument = {}) {
    try {
      launcher_.start(program, argument);
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.path(), program);
      return static_cast<int>(error.number());
    }
    return 0;
  }

  TemporaryFolder folder_;
  WindowsFiles files_;
  WindowsLauncher launcher_;
};

TEST_F(WindowsLauncherTest, TheCommandLineIsTheProgramABlankAndTheArgument) {
  const std::string program = recorder("p/winamp.exe");
  const std::string argument = R"(C:\MUSIC\a "b"  c\ %PATH% ^& | d.mp3)";
  EXPECT_EQ(starting(program, argument), 0);
  EXPECT_EQ(record("p"), program + " " + argument + "\nminimized\n" + program);
}

TEST_F(WindowsLauncherTest, ABlankInThePathStartsNoOtherProgram) {
  recorder("My.exe");
  recorder("My/other.exe");
  const std::string program = recorder("My Programs/win amp.exe");
  EXPECT_EQ(starting(program, "x"), 0);
  EXPECT_EQ(record("My Programs"), program + " x\nminimized\n" + program);
  EXPECT_FALSE(readFile(folder_ / "record.txt"));
}

TEST_F(WindowsLauncherTest, TheProgramMayHaveAnyName) {
  const std::string program = recorder("\u00C4\u4E2D \U0001F3B5/winamp.exe");
  EXPECT_EQ(starting(program, "\u00E9"), 0);
  EXPECT_EQ(record("\u00C4\u4E2D \U0001F3B5"), program + " \u00E9\nminimized\n" + program);
}

TEST_F(WindowsLauncherTest, NothingIsSearched) {
  EXPECT_EQ(starting("cmd.exe", "/c exit"), 53) << "along PATH";
  EXPECT_EQ(starting(folder_ / "winamp", "x"), 53) << "no such file";
  recorder("winamp.exe");
  EXPECT_EQ(starting(folder_ / "winamp", "x"), 53) << "no extension is added";
  EXPECT_EQ(starting(folder_.path(), "x"), 53) << "a folder";
  const std::string before = files_.currentDirectory();
  ::SetCurrentDirectoryW(toWide(folder_.path()).c_str());
  EXPECT_EQ(starting("winamp.exe", "x"), 53) << "in the current folder";
  ::SetCurrentDirectoryW(toWide(before).c_str());
  EXPECT_FALSE(readFile(folder_ / "record.txt"));
}

TEST_F(WindowsLauncherTest, WhatIsNoProgramMayNotBeStarted) {
  writeFile(folder_ / "winamp.exe", "no program");
  EXPECT_EQ(starting(folder_ / "winamp.exe", "x"), 70);
}

}  // namespace
}  // namespace plimo
