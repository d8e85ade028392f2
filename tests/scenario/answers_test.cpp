// Answers are taken strictly in the order in which they are queued.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "scenario/failure_reporter.h"
#include "scenario/run_scenario.h"
#include "scenario/scripted_dialogs.h"

namespace plimo::scenario {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Answers : public testing::Test {
 protected:
  void queue(Answer::Kind kind, std::optional<std::string> text, const std::string& spelling) {
    dialogs_.queue({kind, std::move(text), spelling});
  }
  std::string failures() const { return out_.str(); }

  std::ostringstream out_;
  FailureReporter reporter_{out_};
  ScriptedDialogs dialogs_{reporter_};
};

TEST_F(Answers, OfAllKindsFormOneQueue) {
  queue(Answer::Kind::question, "yes", "answer yes");
  queue(Answer::Kind::input, "name", "answer input name");
  queue(Answer::Kind::open, "C:\\a", "answer open C:\\a");
  queue(Answer::Kind::save, "C:\\b", "answer save C:\\b");
  queue(Answer::Kind::question, std::nullopt, "answer no");
  EXPECT_TRUE(dialogs_.question("Sure?"));
  EXPECT_EQ(dialogs_.input("", "Name?", ""), "name");
  EXPECT_EQ(dialogs_.openFile({}), "C:\\a");
  EXPECT_EQ(dialogs_.saveFile({}), "C:\\b");
  EXPECT_FALSE(dialogs_.question("Sure?"));
  EXPECT_EQ(failures(), "");
  EXPECT_THAT(dialogs_.answers(), IsEmpty());
}

TEST_F(Answers, OfAnotherKindFailAndStayQueued) {
  queue(Answer::Kind::input, "name", "answer input name");
  queue(Answer::Kind::question, "yes", "answer yes");
  EXPECT_FALSE(dialogs_.question("Sure?"));
  EXPECT_EQ(failures(), ":0: expected an answer to the question \"Sure?\", got answer input name\n");
  EXPECT_THAT(dialogs_.answers(), SizeIs(2));
}

TEST_F(Answers, OfAnotherKindCountAsCancel) {
  queue(Answer::Kind::question, "yes", "answer yes");
  EXPECT_EQ(dialogs_.input("", "Name?", "proposed"), "");
  EXPECT_EQ(dialogs_.openFile({}), std::nullopt);
  EXPECT_EQ(dialogs_.saveFile({}), std::nullopt);
  EXPECT_EQ(reporter_.count(), 3U);
}

TEST_F(Answers, ThatAreMissingFail) {
  EXPECT_FALSE(dialogs_.question("Sure?"));
  EXPECT_EQ(dialogs_.input("", "Name?", "proposed"), "");
  EXPECT_EQ(dialogs_.openFile({}), std::nullopt);
  EXPECT_EQ(dialogs_.saveFile({}), std::nullopt);
  EXPECT_EQ(failures(),
            ":0: expected an answer to the question \"Sure?\", got none\n"
            ":0: expected an answer to the input box \"Name?\", got none\n"
            ":0: expected an answer to the dialog that opens a file, got none\n"
            ":0: expected an answer to the dialog that saves a file, got none\n");
}

TEST_F(Answers, AreNotNeededForMessages) {
  queue(Answer::Kind::question, "yes", "answer yes");
  dialogs_.message("Done");
  EXPECT_EQ(failures(), "");
  EXPECT_THAT(dialogs_.answers(), SizeIs(1));
}

TEST(ScanAnswers, HaveAQueueOfTheirOwn) {
  const std::string scan =
      "file C:\\1.mp3\nfile C:\\2.mp3\ntext C:\\Plimo\\plimo.ini\n0\n#FALSE#\n#TRUE#\n\"C:\"\n0\n0\n1\n2\n3\n4\n5\n"
      "\"6\"\nend\n";
  const ScenarioResult result =
      runScenarioText(scan +
                      "answer open cancel\nanswer scan cancel 1\nstart\nexpect rows List2 MISCELLANEOUS\n"
                      "click openyh\n");
  EXPECT_EQ(result.err, "");
}

}  // namespace
}  // namespace plimo::scenario
