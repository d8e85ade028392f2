// The whole program on the in-memory platform, with prepared answers to its dialogs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "fileops/quiet_progress.h"
#include "platform/memory/fake_file_system.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"

namespace plimo {

class TestDialogs : public Dialogs {
 public:
  void message(const std::string& text) override {
    messages.push_back(text);
    if (whileOpen) whileOpen();
  }
  bool question(const std::string& text) override {
    questions.push_back(text);
    return questions.size() <= yesAnswers;
  }
  std::string input(const std::string&, const std::string&, const std::string&) override { return inputText; }
  std::optional<std::string> openFile(const FileDialog&) override { return std::nullopt; }
  std::optional<std::string> saveFile(const FileDialog&) override { return std::nullopt; }
  void report(const RuntimeError& error) override { reports.push_back(error.report()); }

  bool hasMessageOrReport() const { return !messages.empty() || !reports.empty(); }

  std::size_t yesAnswers = 0;  // number of questions answered Yes; the later ones are answered No
  std::string inputText;
  std::function<void()> whileOpen;  // called while a message is shown
  std::vector<std::string> messages;
  std::vector<std::string> questions;
  std::vector<std::string> reports;
};

class TestProgram {
 public:
  // Started before, with Winamp or not.
  explicit TestProgram(bool winamp = false) {
    const char* first = winamp ? "1" : "0";
    files.addTextFile(R"(C:\Plimo\plimo.ini)",
                      std::string(first) +
                          "\r\n#TRUE#\r\n#FALSE#\r\n\"\"\r\n0\r\n0\r\n65535\r\n4194304\r\n65535\r\n"
                          "4194304\r\n65535\r\n\"4194304\"\r\n");
  }

  // A file holding its own path, and its record.
  void addSong(const std::string& path) {
    files.addTextFile(path, path);
    const SongName name = splitFileName(files.fileName(path));
    appendRecord(catalogue_, {path, name.artist, name.second, name.title});
    files.addTextFile(R"(C:\Plimo\plimo.kvx)", catalogue_);
  }

  Form1& form() { return program.form1(); }

  FakeFileSystem files;
  FakePlayer player;
  TestDialogs dialogs;
  FakeLauncher launcher{files};
  QuietProgress progress;
  Program program{Platform{files, player, dialogs, launcher, progress}};

 private:
  std::string catalogue_;
};

}  // namespace plimo
