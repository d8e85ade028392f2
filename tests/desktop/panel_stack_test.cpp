#include "desktop/window/panel_stack.h"

#include <gtest/gtest.h>

#include "controls/simple_controls.h"

namespace plimo {
namespace {

class PanelStackTest : public testing::Test {
 protected:
  PanelStackTest() {
    left.setGeometry({0, 0, 100, 100});
    right.setGeometry({100, 0, 100, 100});
    wide.setGeometry({50, 50, 100, 100});
    for (Frame* frame : {&left, &right, &wide}) frame->setVisible(false);
  }

  Dispatcher dispatcher;
  Form form{dispatcher, "form"};
  CommandButton outside{form, "outside"};
  Frame left{form, "left"};
  CommandButton inLeft{form, "inLeft", &left};
  Frame right{form, "right"};
  Frame wide{form, "wide"};
  PanelStack stack{form};
};

TEST_F(PanelStackTest, AControlIsNoPanel) {
  EXPECT_EQ(stack.top(), nullptr);
  outside.setVisible(false);
  outside.setVisible(true);
  EXPECT_EQ(stack.top(), nullptr);
  EXPECT_FALSE(stack.covered(outside));
}

TEST_F(PanelStackTest, OnlyPanelsThatMeetCoverOneAnother) {
  left.setVisible(true);
  right.setVisible(true);
  EXPECT_FALSE(stack.covered(left));
  wide.setVisible(true);
  EXPECT_TRUE(stack.covered(left));
  EXPECT_TRUE(stack.covered(right));
  EXPECT_FALSE(stack.covered(wide));
  wide.setVisible(false);
  EXPECT_FALSE(stack.covered(left));
}

TEST_F(PanelStackTest, APanelShownAgainComesToTheFront) {
  left.setVisible(true);
  wide.setVisible(true);
  EXPECT_EQ(stack.top(), &wide);
  left.setVisible(true);
  EXPECT_EQ(stack.top(), &left);
  EXPECT_TRUE(stack.covered(wide));
}

TEST_F(PanelStackTest, TheWayBackGoesPastAPanelThatIsClosedBefore) {
  form.userFocus(&outside);
  left.setVisible(true);
  form.userFocus(&inLeft);
  right.setVisible(true);
  left.setVisible(false);
  EXPECT_EQ(stack.focusBefore(), &outside);
  stack.clearChanged();
  EXPECT_FALSE(stack.changed());
  right.setVisible(false);
  EXPECT_TRUE(stack.changed());
  EXPECT_EQ(stack.focusBefore(), &outside);
}

}  // namespace
}  // namespace plimo
