// A song that the machine cannot rename in one step: it is copied, and the old file deleted.
#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

class RenamingByCopy : public testing::Test {
 protected:
  RenamingByCopy() {
    machine_.files.setMovesFiles(false);
    for (const std::string& song : {old_, existing_}) machine_.addSong(song);
    machine_.program.start();
    form_.List2.userTick(0, true);
    form_.List1.userMoveCurrent(0);
    machine_.progress.updates.clear();
    machine_.dialogs.inputText = "B";
  }

  const std::string old_ = R"(C:\Music\A.mp3)";
  const std::string existing_ = R"(C:\Music\B.mp3)";
  TestProgram machine_;
  Form1& form_ = machine_.form();
};

TEST_F(RenamingByCopy, OverwritesAFileOfTheNewName) {
  form_.rename.userClick();
  EXPECT_FALSE(machine_.files.fileExists(old_));
  EXPECT_EQ(machine_.files.fileContent(existing_), old_);
  EXPECT_EQ(form_.List1.count(), 1U);
  EXPECT_EQ(machine_.dialogs.questions.size(), 1U);
  EXPECT_EQ(machine_.progress.updates, std::vector<std::string>{"1/1 B.mp3"});
}

TEST_F(RenamingByCopy, ChangesNothingIfTheUserClosesTheWindow) {
  machine_.progress.cancelAfter = 1;
  form_.rename.userClick();
  EXPECT_EQ(machine_.files.fileContent(old_), old_);
  EXPECT_EQ(machine_.files.fileContent(existing_), existing_);
  EXPECT_EQ(form_.List1.count(), 2U);
  EXPECT_TRUE(machine_.dialogs.questions.empty());
}

}  // namespace
}  // namespace plimo
