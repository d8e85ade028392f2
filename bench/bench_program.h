// The whole program on real files, without a window.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/program.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "support/quiet_progress.h"
#include "support/test_dialogs.h"
#include "system.h"

namespace plimo::bench {

// Ends the process at the first error: the measurement would be meaningless.
class BenchDialogs : public TestDialogs {
 public:
  [[noreturn]] void report(const RuntimeError& error) override;
};

// Real files that report when the catalogue has been written.
class BenchFiles : public SystemFiles {
 public:
  using SystemFiles::SystemFiles;
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override;

  std::function<void()> catalogueWritten;
};

// Writes the settings into the current folder, which is the program's.
void writeSettings(bool scanAtStart);

// The program, started in the current folder. Drive M is the folder `music`.
class BenchProgram {
 public:
  // Ends the process if the program does not start. `catalogueWritten` is called after each write of the catalogue.
  explicit BenchProgram(const std::string& music = driveRoot, std::function<void()> catalogueWritten = {});

  Form1& form() { return program_.form1(); }
  TestDialogs& dialogs() { return dialogs_; }
  FileSystemObject& files() { return files_; }

 private:
  BenchFiles files_;
  FakePlayer player_;
  BenchDialogs dialogs_;
  FakeLauncher launcher_{files_};
  QuietProgress progress_;
  Program program_{Platform{files_, player_, dialogs_, launcher_, progress_}};
};

}  // namespace plimo::bench
