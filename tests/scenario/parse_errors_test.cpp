// Parse errors: exit status 2, and file, line and word are named.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scenario/run_scenario.h"

namespace plimo::scenario {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Bad {
  const char* scenario;
  const char* beginning;
};

class ParseErrors : public testing::TestWithParam<Bad> {};

TEST_P(ParseErrors, AreNamedAndExitWithTwo) {
  const ScenarioResult result = runScenarioText(GetParam().scenario);
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, StartsWith(GetParam().beginning));
  EXPECT_EQ(result.out, "0 passed, 1 failed\n");
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryKind, ParseErrors,
    testing::Values(
        Bad{"# one\n\nstrat\n", "scenario:3: cannot read 'strat': "},
        Bad{"start now", "scenario:1: cannot read 'now': "}, Bad{"click", "scenario:1: cannot read 'click': "},
        Bad{"click Command99", "scenario:1: cannot read 'Command99': "},
        Bad{"click command1", "scenario:1: cannot read 'command1': "},
        Bad{"click List1", "scenario:1: cannot read 'List1': "},
        Bad{"click frmSplash.Command1", "scenario:1: cannot read 'frmSplash.Command1': "},
        Bad{"fire Command1", "scenario:1: cannot read 'Command1': "},
        Bad{"select List1 0 x", "scenario:1: cannot read 'x': "},
        Bad{"select List1 -1", "scenario:1: cannot read '-1': "},
        Bad{"current List1", "scenario:1: cannot read 'List1': "},
        Bad{"current List1 1 2", "scenario:1: cannot read '2': "},
        Bad{"tick List1 A", "scenario:1: cannot read 'List1': "},
        Bad{"key List1 return", "scenario:1: cannot read 'return': "},
        Bad{"slide Slider1 red", "scenario:1: cannot read 'red': "},
        Bad{"pick List1 C", "scenario:1: cannot read 'List1': "},
        Bad{"drive CC fixed", "scenario:1: cannot read 'CC': "},
        Bad{"drive C floppy", "scenario:1: cannot read 'floppy': "},
        Bad{"drive C fixed ready", "scenario:1: cannot read 'ready': "},
        Bad{"file C:\\x 12 13", "scenario:1: cannot read '13': "},
        Bad{"file C:\\x 1.5", "scenario:1: cannot read '1.5': "},
        Bad{"folder C:\\x locked", "scenario:1: cannot read 'locked': "},
        Bad{"disk C", "scenario:1: cannot read 'C': "}, Bad{"screen 100", "scenario:1: cannot read '100': "},
        Bad{"design Form2 0 0 1 1", "scenario:1: cannot read 'Form2': "},
        Bad{"player speed 1", "scenario:1: cannot read 'player': "},
        Bad{"player duration 1,5", "scenario:1: cannot read '1,5': "},
        Bad{"answer", "scenario:1: cannot read 'answer': "}, Bad{"answer maybe", "scenario:1: cannot read 'maybe': "},
        Bad{"answer scan cancel soon", "scenario:1: cannot read 'soon': "},
        Bad{"expect", "scenario:1: cannot read 'expect': "}, Bad{"expect luck", "scenario:1: cannot read 'luck': "},
        Bad{"expect visible", "scenario:1: cannot read 'expect visible': "},
        Bad{"expect visible List1 Lits2", "scenario:1: cannot read 'Lits2': "},
        Bad{"expect checked Command1", "scenario:1: cannot read 'Command1': "},
        Bad{"expect caption Form1 has X", "scenario:1: cannot read 'X': "},
        Bad{"expect colours List1 1", "scenario:1: cannot read '1': "},
        Bad{"expect place List1 1 2 3", "scenario:1: cannot read '3': "},
        Bad{"expect size List1 1 2", "scenario:1: cannot read 'List1': "},
        Bad{"expect state Form1 big", "scenario:1: cannot read 'big': "},
        Bad{"expect popup Function", "scenario:1: cannot read 'Function': "},
        Bad{"expect player AutoStart on", "scenario:1: cannot read 'on': "},
        Bad{"expect player Volume 1", "scenario:1: cannot read 'Volume': "},
        Bad{"expect error C:\\x", "scenario:1: cannot read 'C:\\x': "},
        Bad{"expect ended well", "scenario:1: cannot read 'well': "},
        Bad{"expect started \"x\" maximised", "scenario:1: cannot read 'maximised': "},
        Bad{"expect message one two", "scenario:1: cannot read 'two': "},
        Bad{"expect message \"one", "scenario:1: cannot read '\"one': "},
        Bad{"text C:\\x\nline\n end\n", "scenario:1: cannot read 'text': "},
        Bad{"text C:\\x\nline\nend\nend\n", "scenario:4: cannot read 'end': "}));

TEST(UnreadableFiles, AreNotExecuted) {
  const ScenarioResult result = runScenarioText("expect running\nstrat\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.err, testing::Not(HasSubstr("scenario:1:")));
}

TEST(UnreadableFiles, DoNotAffectOtherFiles) {
  const ScenarioResult result = runScenarioTexts({"strat\n", "start\n", "expect running\n"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "1 passed, 2 failed\n");
  EXPECT_THAT(result.err, HasSubstr("scenario3:1: expected "));
}

TEST(UnreadableFiles, AreNamedIfMissingOrFolders) {
  std::ostringstream out;
  std::ostringstream err;
  const std::vector<std::string> files{"/there/is/no/such/file", "/"};
  EXPECT_EQ(runScenarios(files, out, err), 2);
  EXPECT_EQ(err.str(), "/there/is/no/such/file: cannot be read\n/: cannot be read\n");
}

}  // namespace
}  // namespace plimo::scenario
