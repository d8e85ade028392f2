// A shell without a window: the whole program over the real machine, and a user who answers every box.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/program.h"
#include "platform/linux/linux_files.h"

namespace plimo::bench {

// Answers what it was told to; anything that the program reports as an error ends the measurement.
class Answers : public Dialogs {
 public:
  std::vector<bool> questions;  // taken from the front; none left: no
  std::string file;             // what the file dialogs give
  std::string text;             // what is typed into a box, once

  void message(const std::string&) override {}
  bool question(const std::string&) override;
  std::string input(const std::string&, const std::string&, const std::string&) override {
    return std::exchange(text, {});
  }
  std::optional<std::string> openFile(const FileDialog&) override { return file; }
  std::optional<std::string> saveFile(const FileDialog&) override { return file; }
  [[noreturn]] void report(const RuntimeError& error) override;
};

class NoProgress : public Progress {
 public:
  void begin(Task) override {}
  void update(const ProgressUpdate&) override {}
  void end() override {}
  bool cancelled() const override { return false; }
};

class SilentPlayer : public MediaPlayer {
 public:
  void open(const std::string&) override {}
  void stop() override {}
  void setFileName(const std::string&) override {}
  double duration() override { return 0; }
  double currentPosition() override { return 0; }
  void setAutoStart(bool) override {}
  void setShowControls(bool) override {}
  void setEnabled(bool) override {}
};

class NoLauncher : public Launcher {
 public:
  void start(const std::string&, const std::string&) override {}
};

// A real machine's files, and the moment at which the catalogue stands on the disk.
class BenchFiles : public LinuxFiles {
 public:
  using LinuxFiles::LinuxFiles;
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override;

  std::function<void()> catalogueWritten;
};

// The parts of a machine; drive M is the folder named, or the current one.
class BenchMachine {
 public:
  explicit BenchMachine(const std::string& music);
  Platform platform() { return {files, player, answers, launcher, progress}; }

  BenchFiles files;
  SilentPlayer player;
  Answers answers;
  NoLauncher launcher;
  NoProgress progress;
};

// What the settings say of the start.
enum class Start { readCatalogue, scan };

// Writes the settings into the current folder, which is the program's.
void writeSettings(Start start);

// The program, started in the current folder.
class BenchProgram {
 public:
  // Ends the process where the program does not start. `catalogueWritten` is called whenever that has come to its end.
  explicit BenchProgram(const std::string& music, std::function<void()> catalogueWritten = {});

  Form1& form() { return program_->form1(); }
  Answers& answers() { return machine_.answers; }
  FileSystemObject& files() { return machine_.files; }

 private:
  BenchMachine machine_;
  std::unique_ptr<Program> program_;
};

}  // namespace plimo::bench
