// How often the files are written when a playlist is saved.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "platform/memory/fake_file_system.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "support/quiet_progress.h"
#include "support/sample_settings.h"
#include "support/test_dialogs.h"

namespace plimo {
namespace {

class RecordingFiles : public FakeFileSystem {
 public:
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override {
    replaced.emplace_back(path);
    return FakeFileSystem::replaceFile(path, force);
  }

  std::vector<std::string> replaced;
};

class Saving : public testing::Test {
 protected:
  Saving() {
    files_.addTextFile(R"(C:\Plimo\plimo.ini)", settingsText({false, false, ""}));
    files_.addTextFile(R"(C:\Plimo\plimo.kvx)", "");
    program_.start();
    files_.replaced.clear();
  }

  // Saves as the default playlist, too.
  void saveAs(const std::string& name) {
    dialogs_.answers = {true, true};
    dialogs_.file = name;
    program_.form1().Command4_Click();
  }

  RecordingFiles files_;
  FakePlayer player_;
  TestDialogs dialogs_;
  FakeLauncher launcher_{files_};
  QuietProgress progress_;
  Program program_{Platform{files_, player_, dialogs_, launcher_, progress_}};
};

TEST_F(Saving, OntoTheDefaultPlaylistWritesItOnce) {
  files_.addTextFile(R"(C:\Plimo\default.m3u)", "");
  saveAs(R"(C:\Plimo\default.m3u)");
  EXPECT_EQ(files_.replaced, std::vector<std::string>{R"(C:\Plimo\default.m3u)"});
}

TEST_F(Saving, UnderTheNameDefaultWritesItOnce) {
  saveAs(R"(C:\Plimo\default)");
  EXPECT_EQ(files_.replaced, std::vector<std::string>{R"(C:\Plimo\default.m3u)"});
}

TEST_F(Saving, ElsewhereWritesTheDefaultPlaylistToo) {
  saveAs(R"(C:\Plimo\evening)");
  EXPECT_EQ(files_.replaced, (std::vector<std::string>{R"(C:\Plimo\evening.m3u)", R"(C:\Plimo\default.m3u)"}));
}

}  // namespace
}  // namespace plimo
