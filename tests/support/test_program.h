// The whole program on the in-memory platform.
#pragma once

#include <string>

#include "app/program.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "platform/memory/fake_file_system.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "support/quiet_progress.h"
#include "support/sample_settings.h"
#include "support/test_dialogs.h"

namespace plimo {

class TestProgram {
 public:
  // Not the first start: there is a settings file.
  explicit TestProgram(bool winamp = false) {
    files.addTextFile(R"(C:\Plimo\plimo.ini)", settingsText({winamp, false, ""}));
  }

  // Adds a file whose content is its path, and its catalogue record.
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
