// The window is closed while songs are copied or deleted: the command stops as by Cancel, and the program ends.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "app/program.h"
#include "catalogue/catalogue_reader.h"
#include "platform/memory/fake_file_system.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "support/sample_settings.h"
#include "support/test_dialogs.h"

namespace plimo {
namespace {

// The user closes the window when the second file's turn comes.
class ClosingProgress : public Progress {
 public:
  void begin(Task) override {}
  void update(const ProgressUpdate& update) override {
    if (update.done < 2 || closed_) return;
    closed_ = true;
    close();
  }
  void end() override {}
  bool cancelled() const override { return closed_; }

  std::function<void()> close;

 private:
  bool closed_ = false;
};

class Closing : public testing::Test {
 protected:
  Closing() {
    files_.addTextFile(R"(C:\Plimo\plimo.ini)", settingsText({false, false, ""}));
    std::string catalogue;
    for (const std::string name : {"A", "B", "C"}) {
      const std::string path = R"(C:\Music\)" + name + ".mp3";
      files_.addTextFile(path, path);
      appendRecord(catalogue, {path, "X", "", name + ".mp3"});
    }
    files_.addTextFile(R"(C:\Plimo\plimo.kvx)", catalogue);
    files_.addFolder(R"(C:\Out)");
    program_.start();
    progress_.close = [this] { form_.userClose(); };
    form_.List2.userTick(0, true);
    form_.List1.userSelectAll();
  }

  bool fileExists(const std::string& path) { return files_.fileExists(path); }

  FakeFileSystem files_;
  FakePlayer player_;
  TestDialogs dialogs_;
  FakeLauncher launcher_{files_};
  ClosingProgress progress_;
  Program program_{Platform{files_, player_, dialogs_, launcher_, progress_}};
  Form1& form_ = program_.form1();
};

TEST_F(Closing, StopsADeletionAndOffersNoScan) {
  dialogs_.yesAnswers = 2;
  form_.ds.userClick();
  EXPECT_FALSE(fileExists(R"(C:\Music\A.mp3)"));
  EXPECT_TRUE(fileExists(R"(C:\Music\B.mp3)"));
  EXPECT_TRUE(fileExists(R"(C:\Music\C.mp3)"));
  EXPECT_EQ(dialogs_.questions.size(), 1U);
  EXPECT_FALSE(dialogs_.hasMessageOrReport());
  EXPECT_FALSE(program_.running());
  EXPECT_EQ(program_.status(), 0);
}

TEST_F(Closing, StopsACopy) {
  form_.cop.userClick();
  form_.Dir2.userPick(R"(C:\Out)");
  form_.Command6.userClick();
  EXPECT_TRUE(fileExists(R"(C:\Out\A.mp3)"));
  EXPECT_FALSE(fileExists(R"(C:\Out\B.mp3)"));
  EXPECT_FALSE(dialogs_.hasMessageOrReport());
  EXPECT_FALSE(program_.running());
}

}  // namespace
}  // namespace plimo
