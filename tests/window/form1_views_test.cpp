// The two views, with windows that report a new size immediately and with windows that report it later.
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
  explicit TestWindow(Form& form, bool immediate) : form_(form), immediate_(immediate) { form.setHost(this); }

  // Reports the pending sizes to the form.
  void reportSizes() {
    while (!sizes_.empty()) {
      const Size size = sizes_.front();
      sizes_.pop_front();
      form_.windowResized(size.width, size.height, size.width, size.height);
    }
  }
  void userMaximises() {
    form_.windowStateChanged(WindowState::maximised);
    queueSize(screen);
    reportSizes();
  }
  void userResizes(Size size) {
    form_.windowStateChanged(WindowState::normal);
    normal_ = size;
    queueSize(size);
    reportSizes();
  }

  void show(Form&) override { queueStateSize(); }
  void unload(Form&) override {}
  void captionChanged(Form&) override {}
  void statusChanged(Form&) override {}
  void stateChanged(Form&) override { queueStateSize(); }
  void resizeTo(Form&, double width, double height) override {
    normal_ = {width, height};
    queueStateSize();
  }
  void focusChanged(Form&) override {}
  void popUp(Form&, Menu&) override {}
  void pause(Form&, std::chrono::milliseconds) override {}

  bool ignoresState = false;  // keeps its size when the state changes

 private:
  void queueStateSize() {
    if (!form_.visible() || form_.windowState() == WindowState::minimised || ignoresState) return;
    queueSize(form_.windowState() == WindowState::maximised ? screen : normal_);
  }
  void queueSize(Size size) {
    sizes_.push_back(size);
    if (immediate_) reportSizes();
  }

  Form& form_;
  bool immediate_;
  Size normal_{9000, 6000};
  std::deque<Size> sizes_;
};

class Views : public testing::TestWithParam<bool> {
 protected:
  void start() {
    test.addSong(R"(C:\Music\Abba - Fernando.mp3)");
    test.program.start();
    window.reportSizes();
  }

  using Geometries = std::vector<Geometry>;
  Geometries geometries() {
    Geometries all;
    for (const Control* control : form.controls()) all.push_back(control->geometry());
    return all;
  }
  void expectGeometries(const Geometries& expected) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(form.controls()[i]->geometry(), expected[i]) << form.controls()[i]->name();
    }
  }

  void click(Menu& item) {
    item.userClick();
    window.reportSizes();
  }

  TestProgram test;
  Form1& form = test.form();
  TestWindow window{form, GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Windows, Views, testing::Bool(), [](const auto& immediate) {
  return immediate.param ? "ReportingImmediately" : "ReportingLater";
});

TEST_P(Views, StartUpScalesTheControlsToTheScreen) {
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
  Geometries expected = geometries();
  click(form.Compact);
  window.userResizes({5000, 3000});
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (form.controls()[i] == &form.MediaPlayer1) expected[i] = form.MediaPlayer1.geometry();
  }
  expectGeometries(expected);
}

TEST_P(Views, LargeRestoresAllControls) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  click(form.large);
  EXPECT_EQ(form.windowState(), WindowState::maximised);
  EXPECT_EQ(form.scaleWidth(), screen.width);
  expectGeometries(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, ASecondCompactRecordsNothingNew) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  const double width = form.width();
  click(form.Compact);
  EXPECT_EQ(form.width(), width);
  click(form.large);
  expectGeometries(expected);
}

TEST_P(Views, LargeInTheLargeViewLaysOutImmediately) {
  start();
  const Geometries expected = geometries();
  form.large.userClick();
  expectGeometries(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, LargeFromANormalWindowFillsTheScreen) {
  start();
  const Geometries expected = geometries();
  window.userResizes({9600, 7200});
  EXPECT_NEAR(form.List2.geometry().width, expected[0].width / 2, 0.01);
  click(form.large);
  expectGeometries(expected);
}

TEST_P(Views, LargeFromANormalWindowOfTheScreensSizeLaysOutImmediately) {
  start();
  const Geometries expected = geometries();
  window.userResizes(screen);
  form.large.userClick();
  expectGeometries(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, LargeFromACompactWindowThatTheUserMaximisedLaysOutImmediately) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  window.userMaximises();
  form.large.userClick();
  expectGeometries(expected);
}

TEST_P(Views, LargeFromAMinimisedWindowLaysOutImmediately) {
  start();
  const Geometries expected = geometries();
  form.setWindowState(WindowState::minimised);
  form.large.userClick();
  window.reportSizes();
  expectGeometries(expected);
}

TEST_P(Views, SizesReportedWhileAMessageIsShownAreNotLost) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  test.files.addTextFile(R"(C:\Plimo\plimo.kvx)", "");  // start-up reports that there are no songs
  test.dialogs.whileOpen = [this] { window.reportSizes(); };
  form.large.userClick();
  ASSERT_EQ(test.dialogs.messages.size(), 1U);
  expectGeometries(expected);
  EXPECT_FALSE(form.resizing);
}

TEST_P(Views, AWindowThatIgnoresTheStateIsLaidOutAtTheNextResize) {
  start();
  const Geometries expected = geometries();
  window.ignoresState = true;
  click(form.Compact);
  click(form.large);
  window.userResizes({9000, 6000});
  window.userMaximises();
  expectGeometries(expected);
}

TEST_P(Views, AFailedStartUpLeavesACompleteLayout) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  test.files.addTextFile(R"(C:\Plimo\plimo.ini)", "0\r\n");
  click(form.large);
  EXPECT_EQ(test.dialogs.reports.size(), 1U);
  EXPECT_FALSE(form.here);
  EXPECT_FALSE(form.frommenu);
  expectGeometries(expected);
  window.userResizes({9600, 7200});
  EXPECT_NEAR(form.List2.geometry().width, expected[0].width / 2, 0.01);
}

TEST_P(Views, APanelOpenedFromTheCompactViewLeavesIt) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  click(form.cop);
  EXPECT_EQ(form.windowState(), WindowState::maximised);
  EXPECT_FALSE(form.comp);
  EXPECT_FALSE(form.resizing);
  expectGeometries(expected);
}

TEST_P(Views, APanelRestoresThePlayerBeforeTheWindowIsResized) {
  start();
  const Geometry player = form.MediaPlayer1.geometry();
  click(form.Compact);
  form.cop.userClick();
  EXPECT_NEAR(form.MediaPlayer1.geometry().left, player.left, 0.5);
  EXPECT_NEAR(form.MediaPlayer1.geometry().top, player.top, 0.5);
}

TEST_P(Views, APanelOpenedFromAMaximisedCompactWindowLeavesItToo) {
  start();
  const Geometries expected = geometries();
  click(form.Compact);
  window.userMaximises();
  click(form.cop);
  expectGeometries(expected);
}

TEST_P(Views, APanelInTheLargeViewMovesNothing) {
  start();
  window.userResizes({9600, 7200});
  const Geometries expected = geometries();
  click(form.cop);
  EXPECT_EQ(form.windowState(), WindowState::normal);
  expectGeometries(expected);
}

}  // namespace
}  // namespace plimo
