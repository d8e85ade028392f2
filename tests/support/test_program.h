// The whole program on the in-memory platform.
#pragma once

#include <string>

#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "platform/memory/fake_file_system.h"
#include "support/sample_settings.h"
#include "support/test_session.h"

namespace plimo {

struct FakeFiles {
  FakeFileSystem files;
};

class TestProgram : public FakeFiles, public TestSession {
 public:
  // Not the first start: there is a settings file.
  explicit TestProgram(bool winamp = false) : TestSession(FakeFiles::files) {
    files.addTextFile(R"(C:\Plimo\plimo.ini)", settingsText({winamp, false, ""}));
  }

  // Adds a file whose content is its path, and its catalogue record.
  void addSong(const std::string& path) {
    files.addTextFile(path, path);
    const SongName name = splitFileName(files.fileName(path));
    appendRecord(catalogue_, {path, name.artist, name.second, name.title});
    files.addTextFile(R"(C:\Plimo\plimo.kvx)", catalogue_);
  }

 private:
  std::string catalogue_;
};

}  // namespace plimo
