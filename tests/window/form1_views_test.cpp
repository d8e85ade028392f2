// The two views on windows that answer at once, and on windows that take their time.
#include <gtest/gtest.h>

#include <deque>

#include "support/test_program.h"

namespace plimo {
namespace {

struct Size {
  double width = 0;
  double height = 0;
};

constexpr Size screen{19200, 14400};

class TestWindow : public FormHost {
 public:
  explicit TestWindow(Form& form, bool parallelInvoke) : form_(form), atOnce_(parallelInvoke) { form.setHost(this); }

  // Tells the form what has happened to the window since.
  void settle() {
    while (!sizes_.empty()) {
      const Size size = sizes_.front();
      sizes_.pop_front();
      form_.windowResized(size.width, size.height, size.width, size.height);
    }
  }
  void userMaximises() {
    form_.windowStateChanged(WindowState::maximised);
    tell(screen);
    settle();
  }
  void userResizes(Size size) {
    form_.windowStateChanged(WindowState::normal);
    normal_ = size;
    tell(size);
    settle();
  }

  void show(Form&) override { tellState(); }
  void unload(Form&) override {}
  void captionChanged(Form&) override {}
  void stateChanged(Form&) override { tellState(); }
  void resizeTo(Form&, double width, double height) override {
    normal_ = {width, height};
    tellState();
  }
  void focusChanged(Form&) override {}
  void popUp(Form&, Menu&) override {}
  void pause(Form&, std::chrono::milliseconds) override {}

  bool deaf = false;  // keeps its size, whatever it is told

 private:
  void tellState() {
    if (!form_.visible() || form_.windowState() == WindowState::minimised || deaf) return;
    tell(form_.windowState() == WindowState::maximised ? screen : normal_);
  }
  void tell(Size size) {
    sizes_.push_back(size);
    if (atOnce_) settle();
  }

  Form& form_;
  bool atOnce_;
  Size normal_{9000, 6000};
  std::deque<Size> sizes_;
};

class Views : public testing::TestWithParam<bool> {
 protected:
  void start() {
    test.addSong(R"(C:\Music\Abba - Fernando.mp3)");
    test.program.start();
    window.settle();
  }

  using Places = std::vector<Geometry>;
  Places places() {
    Places all;
    for (const Control* control : form.controls()) all.push_back(control->geometry());
    return all;
  }
  void expectPlaces(const Places& expected) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(form.controls()[i]->geometry(), expected[i]) << form.controls()[i]->name();
    }
  }

  void click(Menu& item) {
    item.userClick();
    window.settle();
  }

  TestProgram test;
  Form1& form = test.form();
  TestWindow window{form, GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Windows, Views, testing::Bool(),
                         [](const auto& answer) { return answer.param ? "ThatAnswerAtOnce" : "ThatAnswerLater"; });

TEST_P(Views, TheStartFillsTheScreenInProportion) {
  const Geometry designed = form.List2.geometry();
  const double designedWidth = form.scaleWidth();
  start();
  EXPECT_EQ(form.scaleWidth(), screen.width);
  EXPECT_NEAR(form.List2.geometry().width, designed.width * screen.width / designedWidth, 0.01);
  EXPECT_EQ(form.Shape1.geometry(), form.List2.geometry());
}

TEST_P(Views, CompactShrinksTheWindowAroundThePlayer) {
  start();
  const Geometry player = form.MediaPlayer1.geometry();
  click(form.Compact);
  EXPECT_EQ(form.windowState(), WindowState::normal);
  EXPECT_DOUBLE_EQ(form.width(), player.width * 41 / 40);
  EXPECT_DOUBLE_EQ(form.height(), player.height * 2);
  EXPECT_EQ(form.MediaPlayer1.geometry(), (Geometry{0, 0, player.width, player.height}));
  EXPECT_TRUE(form.MediaPlayer1.visible());
}

TEST_P(Views, CompactMovesNothingButThePlayer) {
  start();
  Places expected = places();
  click(form.Compact);
  window.userResizes({5000, 3000});
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (form.controls()[i] == &form.MediaPlayer1) expected[i] = form.MediaPlayer1.geometry();
  }
  expectPlaces(expected);
}

TEST_P(Views, LargeBringsEverythingBack) {
  start();
  const Places expected = places();
  click(form.Compact);
  click(form.large);
  EXPECT_EQ(form.windowState(), WindowState::maximised);
  EXPECT_EQ(form.scaleWidth(), screen.width);
  expectPlaces(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, CompactTwiceRecordsNothingNew) {
  start();
  const Places expected = places();
  click(form.Compact);
  const double width = form.width();
  click(form.Compact);
  EXPECT_EQ(form.width(), width);
  click(form.large);
  expectPlaces(expected);
}

TEST_P(Views, LargeInTheLargeViewLaysOutAtOnce) {
  start();
  const Places expected = places();
  form.large.userClick();
  expectPlaces(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, LargeFromAnOrdinaryWindowFillsTheScreen) {
  start();
  const Places expected = places();
  window.userResizes({9600, 7200});
  EXPECT_NEAR(form.List2.geometry().width, expected[0].width / 2, 0.01);
  click(form.large);
  expectPlaces(expected);
}

TEST_P(Views, LargeFromAnOrdinaryWindowOfTheScreensSizeLaysOutAtOnce) {
  start();
  const Places expected = places();
  window.userResizes(screen);
  form.large.userClick();
  expectPlaces(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, LargeFromACompactWindowThatTheUserMaximisedLaysOutAtOnce) {
  start();
  const Places expected = places();
  click(form.Compact);
  window.userMaximises();
  form.large.userClick();
  expectPlaces(expected);
}

TEST_P(Views, LargeFromAMinimisedWindowLaysOutAtOnce) {
  start();
  const Places expected = places();
  form.setWindowState(WindowState::minimised);
  form.large.userClick();
  window.settle();
  expectPlaces(expected);
}

TEST_P(Views, SizesThatComeWhileAMessageStandsThereAreNotLost) {
  start();
  const Places expected = places();
  click(form.Compact);
  test.files.addTextFile(R"(C:\Plimo\plimo.kvx)", "");  // start-up tells that there are no songs
  test.dialogs.whileOpen = [this] { window.settle(); };
  form.large.userClick();
  ASSERT_EQ(test.dialogs.messages.size(), 1U);
  expectPlaces(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, AWindowThatIgnoresTheStateFollowsTheNextResize) {
  start();
  const Places expected = places();
  window.deaf = true;
  click(form.Compact);
  click(form.large);
  window.userResizes({9000, 6000});
  window.userMaximises();
  expectPlaces(expected);
}

TEST_P(Views, AFailingStartUpLeavesAWholeWindow) {
  start();
  const Places expected = places();
  click(form.Compact);
  test.files.addTextFile(R"(C:\Plimo\plimo.ini)", "0\r\n");
  click(form.large);
  EXPECT_EQ(test.dialogs.reports.size(), 1U);
  EXPECT_FALSE(form.here);
  EXPECT_FALSE(form.frommenu);
  expectPlaces(expected);
  window.userResizes({9600, 7200});
  EXPECT_NEAR(form.List2.geometry().width, expected[0].width / 2, 0.01);
}

TEST_P(Views, APanelOpenedFromTheCompactViewLeavesIt) {
  start();
  const Places expected = places();
  click(form.Compact);
  click(form.cop);
  EXPECT_EQ(form.windowState(), WindowState::maximised);
  EXPECT_FALSE(form.comp);
  EXPECT_FALSE(form.resizing);
  expectPlaces(expected);
}

TEST_P(Views, APanelPutsThePlayerBackBeforeTheWindowHasGrown) {
  start();
  const Geometry player = form.MediaPlayer1.geometry();
  click(form.Compact);
  form.cop.userClick();
  EXPECT_NEAR(form.MediaPlayer1.geometry().left, player.left, 0.5);
  EXPECT_NEAR(form.MediaPlayer1.geometry().top, player.top, 0.5);
}

TEST_P(Views, APanelOpenedFromAMaximisedCompactWindowLeavesItToo) {
  start();
  const Places expected = places();
  click(form.Compact);
  window.userMaximises();
  click(form.cop);
  expectPlaces(expected);
}

TEST_P(Views, ThePanelLeavesTheLargeViewAsItIs) {
  start();
  window.userResizes({9600, 7200});
  const Places expected = places();
  click(form.cop);
  EXPECT_EQ(form.windowState(), WindowState::normal);
  expectPlaces(expected);
}

}  // namespace
}  // namespace plimo
