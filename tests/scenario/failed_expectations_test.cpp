// Failed expectations and how they are reported.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scenario/run_scenario.h"

namespace plimo::scenario {
namespace {

using testing::HasSubstr;

// A start with settings that do nothing, and a catalogue of two songs by two artists.
const std::string world =
    "text C:\\Plimo\\plimo.ini\n0\n#TRUE#\n#FALSE#\n\"\"\n0\n0\n65535\n4194304\n65535\n4194304\n65535\n\"4194304\"\n"
    "end\n"
    "text C:\\Plimo\\plimo.kvx\n\"C:\\A - X.mp3\"\n\"A \"\n\" X.mp3\"\n\"X.mp3\"\n"
    "\"C:\\B - Y.mp3\"\n\"B \"\n\" Y.mp3\"\n\"Y.mp3\"\nend\n"
    "start\n";
const int worldLines = 25;

std::string at(int line) { return "scenario:" + std::to_string(worldLines + line) + ": expected "; }

struct Failing {
  const char* scenario;  // appended to the world
  int line;              // of it, from 1
  const char* message;
};

class FailedExpectations : public testing::TestWithParam<Failing> {};

TEST_P(FailedExpectations, NameFileAndLineAndExitWithOne) {
  const ScenarioResult result = runScenarioText(world + GetParam().scenario);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "0 passed, 1 failed\n");
  EXPECT_THAT(result.err, HasSubstr(at(GetParam().line) + GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    OfTheWindow, FailedExpectations,
    testing::Values(Failing{"design List1 0 0 10 10", 1, "a program that has not been started, got it running"},
                    Failing{"\nexpect rows List2 \"A\"", 2, "List2 with 1 row \"A\", got 2 rows \"A\" \"B\""},
                    Failing{"expect rows List2 A b", 1, "List2 with 2 rows"},
                    Failing{"expect rows List2", 1, "List2 with 0 rows"},
                    Failing{"expect rows List2 B A", 1, "List2 with 2 rows"},
                    Failing{"expect count List2 3", 1, "List2 with 3 rows, got 2"},
                    Failing{"expect ticked List2 A", 1, "List2 ticked in 1 row \"A\", got 0 rows"},
                    Failing{"tick List2 A\nexpect ticked List2", 2, "List2 ticked in 0 rows, got 1 row \"A\""},
                    Failing{"tick List2 A\nexpect ticked List2 A C", 2, "List2 ticked in 2 rows"},
                    Failing{"expect selected List2 1", 1, "List2 selected in 1 row 1, got 0 rows"},
                    Failing{"expect current List2 A", 1, "the current row \"A\", got \"\""},
                    Failing{"expect top List1 7", 1, "the top row 7, got "},
                    Failing{"expect visible Frame1", 1, "Frame1 visible, got hidden"},
                    Failing{"expect visible Command5", 1, "Command5 visible, got hidden"},
                    Failing{"expect hidden List1 List2", 1, "List1 hidden, got visible"},
                    Failing{"expect visible frmSplash", 1, "frmSplash visible, got hidden"},
                    Failing{"expect hidden Form1", 1, "Form1 hidden, got visible"},
                    Failing{"expect disabled List1", 1, "List1 disabled, got enabled"},
                    Failing{"expect unchecked Option4", 1, "Option4 unchecked, got checked"},
                    Failing{"expect checked Check3", 1, "Check3 checked, got unchecked"},
                    Failing{"expect caption Exit Exit", 1, "the caption of Exit \"Exit\", got \"E&xit\""},
                    Failing{"expect caption Exit starts \"x\"", 1, "the caption of Exit that starts with \"x\""},
                    Failing{"expect was Form1 \"Nothing\"", 1, "Form1 captioned \"Nothing\" at some moment"},
                    Failing{"expect tooltip List2 x", 1, "the tooltip \"x\""},
                    Failing{"expect colours List2 1 4194304", 1, "the text colour 1, got 65535"},
                    Failing{"expect back List2 2", 1, "the background 2, got 4194304"},
                    Failing{"expect place List2 1 2", 1, "List2 at 1 2, got "},
                    Failing{"expect size Form1 15360 11522", 1, "Form1 of the size 15360 11522, got 15360 11520"},
                    Failing{"expect state Form1 normal", 1, "Form1 normal, got maximised"},
                    Failing{"expect popup pop", 1, "the pop-up menu pop, got none"},
                    Failing{"rightclick List2\nexpect no popup", 2, "no pop-up menu, got pop3"},
                    Failing{"rightclick List2\nexpect popup pop3\nexpect popup pop3", 3,
                            "the pop-up menu pop3, got none"},
                    Failing{"expect focus List1", 1, "the keyboard at List1"},
                    Failing{"expect interval Timer1 900", 1, "Timer1 at 900 ms, got 0"},
                    Failing{"expect path Drive1 Z", 1, "Drive1 at \"Z\""}));

INSTANTIATE_TEST_SUITE_P(
    OfTheProgramsOutput, FailedExpectations,
    testing::Values(
        Failing{"expect message hello", 1, "the message \"hello\", got none"},
        Failing{"click Hotkeys\nexpect message hello", 2, "the message \"hello\", got the message \"The following"},
        Failing{"click Hotkeys\nexpect question hello", 2, "the question \"hello\", got the message"},
        Failing{"click Hotkeys\nexpect no message", 2, "no message, got the message"},
        Failing{"expect prompt hello", 1, "the prompt \"hello\", got no input box"},
        Failing{"expect proposed hello", 1, "the proposal \"hello\", got no input box"},
        Failing{"expect titled Plimo!", 1, "the title \"Plimo!\", got no box expected before"},
        Failing{"expect dialog a b c", 1, "the dialog \"a\" \"b\" \"c\", got none"},
        Failing{"expect file C:\\x", 1, "the file \"C:\\x\", got none"},
        Failing{"expect file C:\\Plimo", 1, "the file \"C:\\Plimo\", got none"},
        Failing{"expect no file C:\\Plimo\\plimo.INI", 1, "no file \"C:\\Plimo\\plimo.INI\", got one"},
        Failing{"expect spelled C:\\plimo\\Plimo.ini", 1, "a file spelled \"Plimo.ini\", got \"plimo.ini\""},
        Failing{"expect text C:\\x\nend", 1, "the file \"C:\\x\", got none"},
        Failing{"file C:\\x\nexpect text C:\\x\none\nend", 2, "the text \"one<CR><LF>\", got \"\""},
        Failing{"text C:\\x lf\none\nend\nexpect text C:\\x\none\nend", 4, "the text \"one<CR><LF>\", got \"one<LF>\""},
        Failing{"expect started x", 1, "the start \"x\", got none"},
        Failing{"expect opened C:\\x", 1, "the opening of \"C:\\x\", got none"},
        Failing{"expect player state playing", 1, "the player's state \"playing\", got \"stopped\""},
        Failing{"expect player visible true", 1, "the player's visible \"true\", got \"false\""},
        Failing{"expect player filename x", 1, "the player's filename \"x\", got \"\""},
        Failing{"expect error", 1, "a run-time error, got none"},
        Failing{"expect ended", 1, "the program's end, got it running"},
        Failing{"click Exit\nexpect running", 2, "a program that is running, got its end"},
        Failing{"click Exit\nexpect ended 1", 2, "the program's end with status 1, got status 0"}));

INSTANTIATE_TEST_SUITE_P(
    OfImpossibleActions, FailedExpectations,
    testing::Values(Failing{"start", 1, "a program that is not running, got it running"},
                    Failing{"click Command5", 1, "Command5 to be usable, got it hidden"},
                    Failing{"click Exit\nclick Exit", 2, "Exit to be usable, got a program that has ended"},
                    Failing{"click Exit\nclose", 2, "Form1 to show, got it hidden"},
                    Failing{"click Exit\nnewstream", 2, "a program that is running, got none"},
                    Failing{"fire Timer1", 1, "Timer1 to run, got it idle"},
                    Failing{"fire frmSplash.Timer1", 1, "frmSplash.Timer1 to run, got it idle"},
                    Failing{"select List1 0", 1, "List1 to have the row 0, got 0 rows"},
                    Failing{"current List2 2", 1, "List2 to have the row 2, got 2 rows"},
                    Failing{"tick List2 C", 1, "List2 to have the row \"C\", got no such row"},
                    Failing{"click Preferences\nclick Check3\npick Drive1 Q", 3, "Drive1 to have the drive \"Q\""},
                    Failing{"resize 100 100\nclick Preferences\nslide Slider1 3", 3,
                            "Slider1 to be usable, got it hidden"},
                    Failing{"remove C:\\nothing", 1, "something to remove at \"C:\\nothing\", got nothing there"},
                    Failing{"file C:\\Plimo", 1, "the line to succeed, got no place for \"C:\\Plimo\""}));

INSTANTIATE_TEST_SUITE_P(
    OfLeftovers, FailedExpectations,
    testing::Values(Failing{"click Hotkeys\n# the end", 2, "no further box, got the message \"The following"},
                    Failing{"answer yes", 1, "every answer to be taken, got answer yes"},
                    Failing{"answer input \"x y\"", 1, "every answer to be taken, got answer input \"x y\""},
                    Failing{"answer scan cancel 3", 1, "every answer to be taken, got answer scan cancel 3"},
                    Failing{"tick List2 A\ncurrent List1 0\nkey List1 enter", 3,
                            "no further opening by the player, got \"C:\\A - X.mp3\""},
                    Failing{"tick List2 A\ncurrent List1 0\nremove C:\\Plimo\\plimo.kvx\nkey List1 enter", 4,
                            "no further run-time error, got \"Run-time error '53':"}));

TEST(Leftovers, IncludeProgramStarts) {
  std::string scenario = world + "tick List2 A\ncurrent List1 0\nclick play\n";
  scenario.replace(scenario.find("\n0\n"), 3, "\n1\n");
  const ScenarioResult result = runScenarioText(
      "file C:\\Plimo\\winamp.exe\nfile \"C:\\A - X.mp3\"\n"
      "text C:\\Plimo\\path.kvx\n\"C:\\Plimo\\winamp.exe\"\nend\n" +
      scenario);
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("no further program start, got \"C:\\Plimo\\winamp.exe C:\\"));
}

TEST(Leftovers, ExcludeInputBoxesAndFileDialogs) {
  EXPECT_EQ(runScenarioText(world + "answer open cancel\nclick open\n").err, "");
}

TEST(Leftovers, IncludeACancelThatAScanNeverReached) {
  const ScenarioResult result = runScenarioText(world +
                                                "file \"C:\\A - X.mp3\"\nanswer scan cancel 2\nclick sodf\n"
                                                "select List7 0\nclick Command17\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("every answer to be taken, got answer scan cancel 2"));
}

TEST(Leftovers, ExcludeACancelThatALaterScanReached) {
  EXPECT_EQ(runScenarioText(world + "file \"C:\\A - X.mp3\"\nanswer scan cancel 2\nclick sodf\nselect List7 0\n"
                                    "click Command17\nfile \"C:\\B - Y.mp3\"\nclick sodf\nselect List7 0\n"
                                    "click Command17\n")
                .err,
            "");
}

TEST(Details, AreThoseOfTheBoxExpectedLast) {
  const ScenarioResult result =
      runScenarioText(world + "tick List2 A\nselect List1 0\nanswer no\nclick ds\n" +
                      "expect question \"You are gonna have to say goodbye to the selected files! You sure ??\"\n" +
                      "remove C:\\Plimo\\plimo.kvx\nkey List1 enter\nexpect error 53\nexpect details \"\"\n");
  EXPECT_EQ(result.err, "");
}

TEST(MissingAnswers, CountAsNo) {
  const ScenarioResult result =
      runScenarioText(world + "tick List2 A\nselect List1 0\nclick ds\n" +
                      "expect question \"You are gonna have to say goodbye to the selected files! You sure ??\"\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr(at(3) + "an answer to the question \""));
  EXPECT_THAT(result.err, testing::Not(HasSubstr(at(4))));
}

}  // namespace
}  // namespace plimo::scenario
