// A small music library on the in-memory platform, with its catalogue.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "platform/memory/fake_file_system.h"
#include "support/quiet_progress.h"

namespace plimo {

constexpr const char* catalogueFile = R"(C:\Plimo\plimo.kvx)";

using Names = std::vector<std::string_view>;

class Library : public testing::Test {
 protected:
  // Adds a file whose content is its path, and its catalogue record.
  void addSong(const std::string& path) {
    files.addTextFile(path, path);
    addRecord(path);
  }
  void addRecord(const std::string& path) {
    const SongName name = splitFileName(files.fileName(path));
    appendRecord(catalogue_, {path, name.artist, name.second, name.title});
    files.addTextFile(catalogueFile, catalogue_);
  }
  void appendTruncatedRecord() { files.addTextFile(catalogueFile, catalogue_ + "\"C:\\broken.mp3\"\r\n"); }

  // The error number of the action; nullopt if it succeeds.
  static std::optional<ErrorNumber> failureOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return std::nullopt;
  }

  FakeFileSystem files;
  QuietProgress progress;

 private:
  std::string catalogue_;
};

}  // namespace plimo
