// The boxes about files that are already present while copying.
#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

class CopyOfPresentFiles : public testing::Test {
 protected:
  CopyOfPresentFiles() {
    for (const char* song : {"A", "B", "C", "D"}) {
      machine_.addSong(std::string(R"(C:\Music\)") + song + ".mp3");
      if (*song != 'D') machine_.files.addTextFile(std::string(R"(C:\Out\)") + song + ".mp3", "");
    }
    machine_.program.start();
    Form1& form = machine_.form();
    form.List2.userTick(0, true);
    form.List1.userSelectAll();
    form.cop.userClick();
    form.Dir2.userPick(R"(C:\Out)");
  }

  void copy() { machine_.form().Command6.userClick(); }
  void expectTheRestCopied() {
    EXPECT_TRUE(machine_.files.fileExists(R"(C:\Out\D.mp3)"));
    EXPECT_EQ(machine_.form().status(), R"(1 song copied to C:\Out, 3 left out: already there 3)");
  }

  TestProgram machine_;
};

TEST_F(CopyOfPresentFiles, ShowsABoxForEach) {
  copy();
  EXPECT_EQ(machine_.dialogs.messages.size(), 3U);
  expectTheRestCopied();
}

TEST_F(CopyOfPresentFiles, ShowsNoneAfterSayNoMore) {
  machine_.dialogs.silence = true;  // offered from the second one on
  copy();
  EXPECT_EQ(machine_.dialogs.messages.size(), 2U);
  expectTheRestCopied();
}

TEST_F(CopyOfPresentFiles, IsSilencedForOneCopyOnly) {
  machine_.dialogs.silence = true;
  copy();
  machine_.dialogs.messages.clear();
  machine_.form().List1.userSelectAll();
  machine_.form().cop.userClick();
  copy();
  EXPECT_EQ(machine_.dialogs.messages.size(), 2U);
}

}  // namespace
}  // namespace plimo
