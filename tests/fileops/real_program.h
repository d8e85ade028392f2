// The whole program without a window, with the files of the operating system.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "support/temporary_folder.h"
#include "support/test_program.h"

namespace plimo {

// The program, started in the folder `home`; its songs may be anywhere.
class RealProgram {
 public:
  RealProgram(FileSystemObject& files, const std::string& home)
      : files_(files),
        launcher_(files),
        program_(Platform{files, player_, dialogs, launcher_, progress_}),
        home_(home) {
    writeFile(files_.join(home_, "plimo.ini"),
              "0\r\n#TRUE#\r\n#FALSE#\r\n\"\"\r\n0\r\n0\r\n65535\r\n4194304\r\n65535\r\n4194304\r\n65535\r\n"
              "\"4194304\"\r\n");
  }

  // Adds the songs to the catalogue and to the scratch playlist, where all are selected and the first is current.
  void startWith(const std::vector<std::string>& songs) {
    std::string catalogue;
    std::vector<std::string> rows;
    for (const std::string& path : songs) {
      const SongName name = splitFileName(files_.fileName(path));
      appendRecord(catalogue, {path, name.artist, name.second, name.title});
      rows.emplace_back(displayName(name.title).value());
    }
    writeFile(files_.join(home_, "plimo.kvx"), catalogue);
    namespace fs = std::filesystem;
    const fs::path before = fs::current_path();
    fs::current_path(home_);
    program_.start();
    fs::current_path(before);
    std::vector<std::size_t> all(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
      form().List1.add(rows[row]);
      all[row] = row;
    }
    form().List1.userSelect(all);
    form().List1.setCurrent(0);
  }

  void rename(const std::string& name) {
    dialogs.inputText = name;
    form().rename.userClick();
  }
  void copyTo(const std::string& folder) {
    form().cop.userClick();
    form().Dir2.userPick(folder);
    form().Command6.userClick();
  }
  void deleteSelected() {
    dialogs.yesAnswers = 1;  // sure, and no scan
    form().ds.userClick();
  }

  Form1& form() { return program_.form1(); }

  TestDialogs dialogs;

 private:
  FileSystemObject& files_;
  FakePlayer player_;
  FakeLauncher launcher_;
  QuietProgress progress_;
  Program program_;
  std::string home_;
};

}  // namespace plimo
