// How often the catalogue is read for a deletion.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/test_program.h"

namespace plimo {
namespace {

TEST(Deleting, ReadsTheCatalogueOnceForTheQuestionAndTheDeletion) {
  TestProgram machine;
  machine.addSong(R"(C:\Music\A.mp3)");
  machine.program.start();
  machine.form().List2.userTick(0, true);
  machine.form().List1.userSelectAll();
  const auto opened = [&machine] {
    const auto& steps = machine.files.steps();
    return std::count(steps.begin(), steps.end(), FakeFileSystem::Step::open);
  };
  const auto before = opened();
  machine.dialogs.yesAnswers = 1;
  machine.form().ds.userClick();
  EXPECT_FALSE(machine.files.fileExists(R"(C:\Music\A.mp3)"));
  EXPECT_EQ(opened() - before, 1);
}

}  // namespace
}  // namespace plimo
