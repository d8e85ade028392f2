// What the user sees after a failure at each file-system step of deleting, renaming and copying. What happens to the
// files, for these and all other commands, is tested in tests/faults.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "support/test_program.h"

namespace plimo {
namespace {

const std::string first = R"(C:\Music\A - First.mp3)";
const std::string second = R"(C:\Music\B - Second.mp3)";
const std::string other = R"(C:\Music\C - Other.mp3)";

class FileFaults : public testing::TestWithParam<ErrorNumber> {
 protected:
  // Runs the command on new programs: with its first step failing, its second, and so on until no step is left.
  template <class Command, class Check>
  void failEachStepOf(Command command, Check check) {
    std::size_t step = 1;
    for (;; ++step) {
      TestProgram test;
      for (const std::string& path : {first, second, other}) test.addSong(path);
      test.files.addFolder(R"(C:\Out)");
      test.program.start();
      for (const char* row : {" First", " Second", " Other"}) test.form().List1.add(row);
      const std::size_t chosen[] = {1, 0};
      test.form().List1.userSelect(chosen);
      const std::string settings = *test.files.fileContent(R"(C:\Plimo\plimo.ini)");
      const std::string catalogue = *test.files.fileContent(R"(C:\Plimo\plimo.kvx)");
      ASSERT_FALSE(test.dialogs.hasMessageOrReport());

      test.files.failAt(step, GetParam());
      command(test);
      SCOPED_TRACE("step " + std::to_string(step));
      const bool failed = !test.files.failurePending();
      test.files.failAt(0, GetParam());
      EXPECT_EQ(test.files.fileContent(other), other);
      EXPECT_EQ(test.files.fileContent(R"(C:\Plimo\plimo.ini)"), settings);
      EXPECT_EQ(test.files.fileContent(R"(C:\Plimo\plimo.kvx)"), catalogue);
      check(test, failed);
      if (!failed) break;
    }
    EXPECT_GT(step, 2U) << "the command takes several steps";
  }

  // The file is missing, or complete.
  static void expectMissingOrComplete(TestProgram& test, const std::string& path, const std::string& content) {
    if (test.files.fileExists(path)) {
      EXPECT_EQ(test.files.fileContent(path), content);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Each, FileFaults,
                         testing::Values(ErrorNumber::permissionDenied, ErrorNumber::fileNotFound,
                                         ErrorNumber::diskFull, ErrorNumber::diskNotReady),
                         [](const auto& failure) {
                           return "WithError" + std::to_string(static_cast<int>(failure.param));
                         });

TEST_P(FileFaults, AFailedDeletionStopsAndIsReported) {
  failEachStepOf(
      [](TestProgram& test) {
        test.dialogs.yesAnswers = 1;
        test.form().ds.userClick();
      },
      [](TestProgram& test, bool failed) {
        expectMissingOrComplete(test, first, first);
        expectMissingOrComplete(test, second, second);
        // A failure to count the files leaves the question without details, and the deletion goes on.
        const bool stopped = failed && !test.dialogs.details.front().empty();
        EXPECT_EQ(test.files.fileExists(first) || test.files.fileExists(second), stopped);
        EXPECT_EQ(test.dialogs.messages.size(), stopped ? 1U : 0U);
        EXPECT_EQ(test.dialogs.questions.size(), 2U) << "the scan is offered even so";
      });
}

TEST_P(FileFaults, ARenamedSongIsNeverLost) {
  const std::string renamed = R"(C:\Music\New.mp3)";
  failEachStepOf(
      [](TestProgram& test) {
        test.dialogs.inputText = "New";
        test.form().rename.userClick();
      },
      [&](TestProgram& test, bool failed) {
        EXPECT_TRUE(test.files.fileExists(first) || test.files.fileExists(renamed));
        expectMissingOrComplete(test, first, first);
        expectMissingOrComplete(test, renamed, first);
        EXPECT_EQ(test.files.fileContent(second), second);
        EXPECT_EQ(test.dialogs.reports.size(), failed ? 1U : 0U);
        EXPECT_EQ(test.form().List1.count(), failed ? 3U : 2U);
      });
}

TEST_P(FileFaults, RenamingOntoAnotherSongKeepsBothUntilTheNewFileIsComplete) {
  failEachStepOf(
      [](TestProgram& test) {
        test.dialogs.inputText = "B - Second";
        test.form().rename.userClick();
      },
      [](TestProgram& test, bool failed) {
        const std::string target = *test.files.fileContent(second);
        EXPECT_TRUE(target == second || target == first);
        EXPECT_TRUE(target == first || test.files.fileContent(first) == first);
        expectMissingOrComplete(test, first, first);
        EXPECT_EQ(test.dialogs.reports.size(), failed ? 1U : 0U);
      });
}

TEST_P(FileFaults, ACopyWithoutACatalogueIsReported) {
  TestProgram test;
  test.addSong(first);
  test.program.start();
  test.form().List1.add(" First");
  test.form().cop.userClick();
  test.files.failAt(1, GetParam());
  test.form().Command6.userClick();
  EXPECT_EQ(test.dialogs.reports.size(), 1U);
  EXPECT_EQ(test.form().Command6.caption(), "Please Wait");
  EXPECT_TRUE(test.form().Frame4.visible());
}

}  // namespace
}  // namespace plimo
