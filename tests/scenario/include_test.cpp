// `include FILE`: files in files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scenario/run_scenario.h"

namespace plimo::scenario {
namespace {

using testing::StartsWith;

void expectPasses(const std::vector<TextFile>& files) {
  const ScenarioResult result = runScenarioFiles(files);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.status, 0);
}

void expectParseError(const std::vector<TextFile>& files, const std::string& message) {
  const ScenarioResult result = runScenarioFiles(files);
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, StartsWith(message));
  EXPECT_EQ(result.out, "0 passed, 1 failed\n");
}

TEST(Include, PutsTheFilesLinesInItsPlace) {
  expectPasses({{"scenario", "file C:\\a\ninclude more.inc\nexpect file C:\\b\nexpect no file C:\\a\n"},
                {"more.inc", "expect file C:\\a\nfile C:\\b\nremove C:\\a\n"}});
}

TEST(Include, CountsThePathFromTheIncludingFilesFolder) {
  expectPasses({{"one/scenario", "include \"../two files/outer.inc\"\nexpect file C:\\inner\n"},
                {"two files/outer.inc", "include deep/inner.inc\n"},
                {"two files/deep/inner.inc", "file C:\\inner\n"}});
}

TEST(Include, MayNameTheSameFileTwice) {
  expectPasses({{"scenario", "include a.inc\nremove C:\\a\ninclude a.inc\ninclude b.inc\n"},
                {"a.inc", "file C:\\a\n"},
                {"b.inc", "include a.inc\nexpect file C:\\a\n"}});
}

TEST(Include, ReadsAnEmptyFile) { expectPasses({{"scenario", "include empty.inc\n"}, {"empty.inc", ""}}); }

TEST(Include, IsTextInsideABlock) {
  expectPasses({{"scenario", "text C:\\a\ninclude none.inc\nend\nexpect text C:\\a\ninclude none.inc\nend\n"}});
}

TEST(Include, ReportsAFailureWhereItsLineIs) {
  const ScenarioResult result = runScenarioFiles(
      {{"scenario", "\ninclude dir/a.inc\nexpect file C:\\c\n"}, {"dir/a.inc", "# one\nexpect file C:\\b\n"}});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err,
            "dir/a.inc:2: expected the file \"C:\\b\", got none\n"
            "scenario:3: expected the file \"C:\\c\", got none\n");
}

TEST(Include, ReportsLeftoversAtTheEndOfTheScenario) {
  const ScenarioResult result = runScenarioFiles({{"scenario", "\n\ninclude a.inc\n"}, {"a.inc", "answer yes\n"}});
  EXPECT_EQ(result.err, "scenario:3: expected every answer to be taken, got answer yes\n");
}

TEST(Include, ReportsAParseErrorWhereItsLineIs) {
  expectParseError({{"scenario", "\ninclude dir/a.inc\n"}, {"dir/a.inc", "start\nstrat\n"}},
                   "dir/a.inc:2: cannot read 'strat': ");
}

TEST(Include, KeepsBlocksInsideOneFile) {
  expectParseError({{"scenario", "include a.inc\nline\nend\n"}, {"a.inc", "\ntext C:\\a\n"}},
                   "a.inc:2: cannot read 'text': its block has no end");
  expectParseError({{"scenario", "text C:\\a\ninclude a.inc\n"}, {"a.inc", "line\nend\n"}},
                   "scenario:1: cannot read 'text': its block has no end");
}

TEST(Include, RejectsAFileThatIncludesItself) {
  expectParseError({{"scenario", "start\ninclude scenario\n"}},
                   "scenario:2: cannot read 'scenario': this file includes itself");
  expectParseError({{"scenario", "include a.inc\n"}, {"a.inc", "\ninclude ./b.inc\n"}, {"b.inc", "include a.inc\n"}},
                   "./b.inc:1: cannot read 'a.inc': this file includes itself");
  expectParseError({{"dir/scenario", "include ../a.inc\n"}, {"a.inc", "include dir/../dir/scenario\n"}},
                   "dir/../a.inc:1: cannot read 'dir/../dir/scenario': this file includes itself");
}

TEST(Include, RejectsAMissingFileAndAFolder) {
  expectParseError({{"scenario", "\ninclude none.inc\n"}}, "scenario:2: cannot read 'none.inc': no such file");
  expectParseError({{"scenario", "include dir\n"}, {"dir/a.inc", ""}}, "scenario:1: cannot read 'dir': ");
}

TEST(Include, TakesExactlyOnePath) {
  expectParseError({{"scenario", "include\n"}}, "scenario:1: cannot read 'include': ");
  expectParseError({{"scenario", "include a.inc b.inc\n"}, {"a.inc", ""}}, "scenario:1: cannot read 'b.inc': ");
  expectParseError({{"scenario", "include \"\"\n"}}, "scenario:1: cannot read '': ");
}

}  // namespace
}  // namespace plimo::scenario
