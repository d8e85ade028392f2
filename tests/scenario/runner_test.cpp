// Scenarios that pass.
#include <gtest/gtest.h>

#include "scenario/run_scenario.h"

namespace plimo::scenario {
namespace {

void expectPasses(const std::string& scenario) {
  const ScenarioResult result = runScenarioText(scenario);
  EXPECT_EQ(result.err, "") << scenario;
  EXPECT_EQ(result.status, 0) << scenario;
  EXPECT_EQ(result.out, "1 passed, 0 failed\n") << scenario;
}

TEST(Runner, CountsPassedAndFailedFiles) {
  const ScenarioResult result = runScenarioTexts({"start\nexpect running\n", "start\nexpect ended\n", "# nothing\n"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "2 passed, 1 failed\n");
  EXPECT_EQ(result.err, "scenario2:2: expected the program's end, got it running\n");
}

TEST(Runner, ContinuesAfterAFailedExpectation) {
  EXPECT_EQ(runScenarioText("expect file C:\\a\nexpect file C:\\b\n").err,
            "scenario:1: expected the file \"C:\\a\", got none\nscenario:2: expected the file \"C:\\b\", got none\n");
}

TEST(Runner, GivesEachFileAFreshWorld) {
  EXPECT_EQ(runScenarioTexts({"file C:\\a\nexpect file C:\\a\n", "expect no file C:\\a\n"}).status, 0);
}

TEST(Runner, ReadsFilesWithDosLineEndsAByteOrderMarkAndNoLastLineEnd) {
  expectPasses("\xEF\xBB\xBF# first\r\ntext C:\\a\r\none \r\nend\r\nexpect text C:\\a\r\none \r\nend");
}

TEST(Runner, KeepsABlocksLinesVerbatim) {
  expectPasses(
      "text C:\\a\n# no comment\n  \"two\n end\nend \nend\n"
      "expect text C:\\a\n# no comment\n  \"two\n end\nend \nend\n");
}

TEST(Runner, EndsATextsLinesAsRequested) {
  expectPasses("text C:\\a\nend\nexpect text C:\\a\nend\n");
  expectPasses("text C:\\a open\none\ntwo\nend\ntext C:\\b open\none\r\ntwo\nend\n");
  EXPECT_EQ(runScenarioText("text C:\\a lf open\none\ntwo\nend\nexpect text C:\\a\nend\n").err,
            "scenario:5: expected the text \"\", got \"one<LF>two\"\n");
  EXPECT_EQ(runScenarioText("text C:\\a open\none\ntwo\nend\nexpect text C:\\a\nend\n").err,
            "scenario:5: expected the text \"\", got \"one<CR><LF>two\"\n");
}

TEST(Runner, HasDriveCUntilDrivesAreDefined) {
  expectPasses("start\nfire frmSplash.Timer1\nexpect rows List5 \"C: Hard Drive\"\n");
  expectPasses(
      "drive e cdrom\ndrive C removable notready\ndrive N network\nstart\nfire frmSplash.Timer1\n"
      "expect rows List5 \"E: CDROM\" \"C: REMOVABLE\"\n");
}

TEST(Runner, AddsADriveToTheRunningProgramsWorld) {
  expectPasses("start\nfire frmSplash.Timer1\nclick Check3\ndrive D cdrom\nfolder D:\\x\nexpect path Drive1 C\n");
}

TEST(Runner, GivesTheWindowTheSizeOfTheScreen) {
  expectPasses(
      "screen 12000 9000\nstart\nfire frmSplash.Timer1\nexpect state Form1 maximised\n"
      "expect size Form1 12000 9000\nscreen 24000 18000\nexpect size Form1 24000 18000\n"
      "resize 6000 4500\nexpect size Form1 6000 4500\nexpect state Form1 normal\n");
}

TEST(Runner, ReplacesTheDesignOfControlsAndTheWindow) {
  expectPasses(
      "design Form1 0 0 10000 5000\ndesign List2 1000 500 2000 2500\nscreen 20000 10000\nstart\n"
      "fire frmSplash.Timer1\nexpect place List2 2000 1000 4000 5000\nexpect place List2 2000 1000\n");
}

TEST(Runner, StartsAgainInTheSameWorldAfterTheEnd) {
  expectPasses(
      "start\nfire frmSplash.Timer1\nclose\nexpect ended 0\nexpect hidden Form1 List5\nstart\nexpect running\n"
      "expect visible frmSplash frmSplash.Image1\nexpect interval frmSplash.Timer1 300\n");
}

TEST(Runner, RecordsPreviousCaptions) {
  const std::string begin = "here C:\\Plimo\nstart\nfire frmSplash.Timer1\nplayer duration 65\nnewstream\n";
  expectPasses(begin +
               "expect interval Timer1 900\nplayer position 2.4\nfire Timer1\n"
               "expect was Form1 \"Plimo! by the Plimo! team.  Total length of current song 1 : 5\"\n"
               "expect was Form1 \"Plimo! by the Plimo! team.  Total length of current song 1 : 5 minutes. "
               "Elapsed Time : 0 : 2\"\nexpect caption Form1 starts \"Plimo!\"\nexpect caption Form1 ends \": 2\"\n");
}

TEST(Runner, ForgetsTheCaptionsBeforeTheLastOne) {
  EXPECT_EQ(runScenarioText("start\nfire frmSplash.Timer1\nnewstream\nfire Timer1\nexpect was Form1 Plimo!\n"
                            "expect was Form1 Plimo!\n")
                .status,
            1);
}

TEST(Runner, MovesTheFocusFromListToListByTab) {
  expectPasses(
      "text C:\\Plimo\\plimo.ini\n0\n#TRUE#\n#FALSE#\n\"\"\n0\n0\n1\n2\n3\n4\n5\n\"6\"\nend\n"
      "text C:\\Plimo\\plimo.kvx\n\"C:\\A - X.mp3\"\n\"A\"\n\"\"\n\" X.mp3\"\nend\nstart\n"
      "key List2 tab\nexpect focus List1\nkey List1 tab\nexpect focus List4\nkey List4 tab\nexpect focus List2\n");
}

TEST(Runner, ComparesPathsCaseInsensitivelyWithSingleBackslashes) {
  expectPasses("text C:\\Plimo\\plimo.ini\n1\nend\nstart\nexpect error 62 c:\\\\plimo\\PLIMO.ini\nexpect ended 1\n");
}

TEST(Runner, CancelsAScanAfterANumberOfSongs) {
  const std::string songs = "file C:\\1.mp3\nfile C:\\2.mp3\nfile C:\\3.mp3\n";
  const std::string scan = "text C:\\Plimo\\plimo.ini\n0\n#FALSE#\n#TRUE#\n\"C:\"\n0\n0\n1\n2\n3\n4\n5\n\"6\"\nend\n";
  expectPasses(songs + scan + "answer scan cancel 2\nstart\ntick List2 MISCELLANEOUS\nexpect rows List1 1 2\n");
  expectPasses(songs + scan + "start\ntick List2 MISCELLANEOUS\nexpect rows List1 1 2 3\n");
}

}  // namespace
}  // namespace plimo::scenario
