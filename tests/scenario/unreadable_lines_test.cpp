// Lines that cannot be read: exit status 2, and file, line and word are named.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scenario/story.h"

namespace plimo::scenario {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Bad {
  const char* story;
  const char* beginning;
};

class UnreadableLines : public testing::TestWithParam<Bad> {};

TEST_P(UnreadableLines, AreNamedAndEndWithTwo) {
  const Told told = tell(GetParam().story);
  EXPECT_EQ(told.status, 2);
  EXPECT_THAT(told.err, StartsWith(GetParam().beginning));
  EXPECT_EQ(told.out, "0 passed, 1 failed\n");
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryKind, UnreadableLines,
    testing::Values(
        Bad{"# one\n\nstrat\n", "story:3: cannot read 'strat': "}, Bad{"start now", "story:1: cannot read 'now': "},
        Bad{"click", "story:1: cannot read 'click': "}, Bad{"click Command99", "story:1: cannot read 'Command99': "},
        Bad{"click command1", "story:1: cannot read 'command1': "},
        Bad{"click List1", "story:1: cannot read 'List1': "},
        Bad{"click frmSplash.Command1", "story:1: cannot read 'frmSplash.Command1': "},
        Bad{"fire Command1", "story:1: cannot read 'Command1': "},
        Bad{"select List1 0 x", "story:1: cannot read 'x': "}, Bad{"select List1 -1", "story:1: cannot read '-1': "},
        Bad{"current List1", "story:1: cannot read 'List1': "}, Bad{"current List1 1 2", "story:1: cannot read '2': "},
        Bad{"tick List1 A", "story:1: cannot read 'List1': "},
        Bad{"key List1 return", "story:1: cannot read 'return': "},
        Bad{"slide Slider1 red", "story:1: cannot read 'red': "}, Bad{"pick List1 C", "story:1: cannot read 'List1': "},
        Bad{"drive CC fixed", "story:1: cannot read 'CC': "}, Bad{"drive C floppy", "story:1: cannot read 'floppy': "},
        Bad{"drive C fixed ready", "story:1: cannot read 'ready': "},
        Bad{"file C:\\x 12 13", "story:1: cannot read '13': "}, Bad{"file C:\\x 1.5", "story:1: cannot read '1.5': "},
        Bad{"folder C:\\x locked", "story:1: cannot read 'locked': "}, Bad{"disk C", "story:1: cannot read 'C': "},
        Bad{"screen 100", "story:1: cannot read '100': "},
        Bad{"design Form2 0 0 1 1", "story:1: cannot read 'Form2': "},
        Bad{"player speed 1", "story:1: cannot read 'player': "},
        Bad{"player duration 1,5", "story:1: cannot read '1,5': "}, Bad{"answer", "story:1: cannot read 'answer': "},
        Bad{"answer maybe", "story:1: cannot read 'maybe': "},
        Bad{"answer scan cancel soon", "story:1: cannot read 'soon': "},
        Bad{"expect", "story:1: cannot read 'expect': "}, Bad{"expect luck", "story:1: cannot read 'luck': "},
        Bad{"expect visible", "story:1: cannot read 'expect visible': "},
        Bad{"expect visible List1 Lits2", "story:1: cannot read 'Lits2': "},
        Bad{"expect checked Command1", "story:1: cannot read 'Command1': "},
        Bad{"expect caption Form1 has X", "story:1: cannot read 'X': "},
        Bad{"expect colours List1 1", "story:1: cannot read '1': "},
        Bad{"expect place List1 1 2 3", "story:1: cannot read '3': "},
        Bad{"expect size List1 1 2", "story:1: cannot read 'List1': "},
        Bad{"expect state Form1 big", "story:1: cannot read 'big': "},
        Bad{"expect popup Function", "story:1: cannot read 'Function': "},
        Bad{"expect player AutoStart on", "story:1: cannot read 'on': "},
        Bad{"expect player Volume 1", "story:1: cannot read 'Volume': "},
        Bad{"expect error C:\\x", "story:1: cannot read 'C:\\x': "},
        Bad{"expect ended well", "story:1: cannot read 'well': "},
        Bad{"expect started \"x\" maximised", "story:1: cannot read 'maximised': "},
        Bad{"expect message one two", "story:1: cannot read 'two': "},
        Bad{"expect message \"one", "story:1: cannot read '\"one': "},
        Bad{"text C:\\x\nline\n end\n", "story:1: cannot read 'text': "},
        Bad{"text C:\\x\nline\nend\nend\n", "story:4: cannot read 'end': "}));

TEST(UnreadableFiles, DoNotRunAtAll) {
  const Told told = tell("expect running\nstrat\n");
  EXPECT_EQ(told.status, 2);
  EXPECT_THAT(told.err, testing::Not(HasSubstr("story:1:")));
}

TEST(UnreadableFiles, LeaveTheOthersTheirVerdict) {
  const Told told = tellAll({"strat\n", "start\n", "expect running\n"});
  EXPECT_EQ(told.status, 2);
  EXPECT_EQ(told.out, "1 passed, 2 failed\n");
  EXPECT_THAT(told.err, HasSubstr("story3:1: expected "));
}

TEST(UnreadableFiles, AreNamedWhereTheyAreMissingOrFolders) {
  std::ostringstream out;
  std::ostringstream err;
  const std::vector<std::string> files{"/there/is/no/such/file", "/"};
  EXPECT_EQ(runScenarioFiles(files, out, err), 2);
  EXPECT_EQ(err.str(), "/there/is/no/such/file: cannot be read\n/: cannot be read\n");
}

}  // namespace
}  // namespace plimo::scenario
