// A list on the screen, painted into memory.
#include "desktop/widgets/list_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "desktop/binders/binder.h"
#include "desktop/widgets/list_accessible.h"

namespace plimo {
namespace {

constexpr std::size_t million = 1'000'000;

class ListOnScreen : public testing::Test {
 protected:
  ListView& show(ListBox& list) {
    binder_ = bindList(list, &window_);
    list.setGeometry({0, 0, 300 * 15, 400 * 15});
    binder_->applyVisible(true);
    window_.resize(300, 400);
    window_.show();
    QApplication::processEvents();
    return static_cast<ListView&>(*binder_->widget());
  }

  void press(ListView& view, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&view, &event);
  }

  void click(ListView& view, const QPoint& place, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), button,
                        type == QEvent::MouseButtonPress ? button : Qt::NoButton, modifiers);
      QApplication::sendEvent(view.viewport(), &event);
    }
  }

  static void fill(ListBox& list, std::size_t count) {
    std::vector<std::string> texts(count);
    for (std::size_t i = 0; i < count; ++i) texts[i] = "Song " + std::to_string(i);
    list.addAll(std::vector<std::string_view>(texts.begin(), texts.end()));
    list.flush();
  }

  std::vector<std::size_t> selected(const ListBox& list) const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < list.count(); ++row) {
      if (list.selected(row)) rows.push_back(row);
    }
    return rows;
  }

  Dispatcher dispatcher_;
  Form form_{dispatcher_, "Form"};
  ListBox songs_{form_, "List1", ListBox::Style::multiSelection};
  ListBox artists_{form_, "List2", ListBox::Style::checkBoxes};
  QWidget window_;
  std::unique_ptr<Binder> binder_;
};

using Rows = std::vector<std::size_t>;

TEST_F(ListOnScreen, PaintsOnlyTheVisibleRowsOfAMillion) {
  ListView& view = show(songs_);
  fill(songs_, million);
  QApplication::processEvents();
  const auto visibleRows = static_cast<std::size_t>(view.viewport()->height() / view.rowHeight() + 1);
  std::size_t painted = 0;
  view.secondaryText = [&painted](std::size_t) {  // called once per painted row
    ++painted;
    return QString();
  };
  for (int i = 0; i < 20; ++i) {
    painted = 0;
    view.verticalScrollBar()->setValue(i * 40'000);
    view.grab();
    EXPECT_GE(painted, visibleRows - 1);
    EXPECT_LE(painted, visibleRows);
  }
  QApplication::processEvents();
  painted = 0;
  for (int i = 0; i < 1000; ++i) {
    songs_.add("One more");
    songs_.flush();
  }
  QApplication::processEvents();
  EXPECT_LE(painted, visibleRows) << "the appended rows are repainted at most once";
}

TEST_F(ListOnScreen, ClicksSelectAlonePlusControlAndToShift) {
  ListView& view = show(songs_);
  fill(songs_, 10);
  const auto at = [&view](std::size_t row) { return view.rowRect(row).center(); };
  click(view, at(2));
  EXPECT_EQ(selected(songs_), Rows{2});
  click(view, at(4), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(selected(songs_), (Rows{2, 4}));
  click(view, at(6), Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_EQ(selected(songs_), (Rows{4, 5, 6}));
}

TEST_F(ListOnScreen, DraggingTheCurrentSelectedRowDoesWhatItsKeysDo) {
  ListView& view = show(songs_);
  view.setReorderable(true);
  fill(songs_, 10);
  std::string keys;
  songs_.keyPress = [&](char key) { keys += std::to_string(*songs_.current()) + key; };
  const auto send = [&view](QEvent::Type type, const QPoint& at) {
    QMouseEvent event(type, at, view.viewport()->mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &event);
  };
  const auto drag = [&](std::size_t from, std::size_t to) {
    send(QEvent::MouseButtonPress, view.rowRect(from).center());
    send(QEvent::MouseMove, view.rowRect(to).center());
    send(QEvent::MouseButtonRelease, view.rowRect(to).center());
  };
  drag(1, 3);
  EXPECT_EQ(keys, "") << "the row was not selected";
  EXPECT_EQ(selected(songs_), (Rows{1, 2, 3}));
  click(view, view.rowRect(2).center());
  drag(2, 7);
  EXPECT_EQ(keys, "2q7w");
  keys.clear();
  click(view, view.rowRect(5).center());
  drag(5, 5);
  EXPECT_EQ(keys, "");
  EXPECT_EQ(selected(songs_), Rows{5});
}

TEST_F(ListOnScreen, TheRightButtonSelectsWhatItPointsAtUnlessThatIsSelected) {
  ListView& view = show(songs_);
  fill(songs_, 10);
  int asked = 0;
  songs_.rightDown = [&asked] { ++asked; };
  songs_.userSelect(Rows{1, 2, 3});
  click(view, view.rowRect(2).center(), Qt::RightButton);
  EXPECT_EQ(selected(songs_), (Rows{1, 2, 3}));
  EXPECT_EQ(songs_.current(), 2U);
  click(view, view.rowRect(7).center(), Qt::RightButton);
  EXPECT_EQ(selected(songs_), Rows{7});
  EXPECT_EQ(asked, 2);
}

TEST_F(ListOnScreen, ArrowsMoveTheCurrentRowAndShiftExtends) {
  ListView& view = show(songs_);
  fill(songs_, 1000);
  press(view, Qt::Key_Down);
  EXPECT_EQ(songs_.current(), 0U);
  press(view, Qt::Key_Down);
  EXPECT_EQ(songs_.current(), 1U);
  EXPECT_TRUE(selected(songs_).empty());
  press(view, Qt::Key_Down, {}, Qt::ShiftModifier);
  EXPECT_EQ(selected(songs_), (Rows{1, 2}));
  press(view, Qt::Key_End);
  EXPECT_EQ(songs_.current(), 999U);
  EXPECT_TRUE(view.viewport()->rect().contains(view.rowRect(999)));
}

TEST_F(ListOnScreen, LettersGoToTheProgramAndNotToASearch) {
  ListView& view = show(songs_);
  fill(songs_, 10);
  std::string keys;
  songs_.keyPress = [&keys](char key) { keys += key; };
  press(view, Qt::Key_Q, QStringLiteral("q"));
  press(view, Qt::Key_D, QStringLiteral("D"), Qt::ShiftModifier);
  press(view, Qt::Key_Return, QStringLiteral("\r"));
  press(view, Qt::Key_Backspace, QStringLiteral("\b"));
  press(view, Qt::Key_Escape, QStringLiteral("\x1b"));
  press(view, Qt::Key_Space, QStringLiteral(" "));
  press(view, Qt::Key_X, QStringLiteral("\x18"), Qt::ControlModifier);
  EXPECT_EQ(keys, "qD\r\b\x1b ");
  EXPECT_EQ(songs_.current(), std::nullopt);
}

TEST_F(ListOnScreen, TicksByTheBoxAndByTheBlank) {
  ListView& view = show(artists_);
  fill(artists_, 10);
  std::vector<std::size_t> ticks;
  artists_.tick = [&ticks](std::size_t row) { ticks.push_back(row); };
  click(view, view.rowRect(3).topLeft() + QPoint(8, 8));
  EXPECT_EQ(selected(artists_), Rows{3});
  click(view, view.rowRect(5).center());
  EXPECT_EQ(selected(artists_), Rows{3});
  press(view, Qt::Key_Space, QStringLiteral(" "));
  EXPECT_EQ(selected(artists_), (Rows{3, 5}));
  EXPECT_EQ(ticks, (Rows{3, 5}));
}

TEST_F(ListOnScreen, OnlyTheUserRaisesScrolling) {
  ListView& view = show(songs_);
  fill(songs_, 1000);
  int scrolls = 0;
  songs_.scroll = [&scrolls] { ++scrolls; };
  songs_.setTop(500);
  songs_.flush();
  EXPECT_EQ(view.verticalScrollBar()->value(), 500);
  EXPECT_EQ(scrolls, 0);
  QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(view.viewport(), &wheel);
  EXPECT_EQ(scrolls, 1);
  EXPECT_GT(view.verticalScrollBar()->value(), 500);
}

TEST_F(ListOnScreen, ShowsControlCharactersAndBytesThatAreNoText) {
  ListView& view = show(songs_);
  songs_.add("a\nb\xFF");
  songs_.flush();
  EXPECT_EQ(view.rowText(0), QString::fromUtf16(u"a\u240Ab\uFFFD"));
}

TEST_F(ListOnScreen, TellsAssistiveToolsOfItsRowsOneByOne) {
  installListAccessible();
  artists_.setAccessibleName("Artists");
  ListView& view = show(artists_);
  fill(artists_, million);
  artists_.userTick(2, true);
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->role(), QAccessible::List);
  EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Artists"));
  EXPECT_EQ(list->childCount(), static_cast<int>(million));
  QAccessibleInterface* row = list->child(2);
  EXPECT_EQ(row->role(), QAccessible::ListItem);
  EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("Song 2"));
  EXPECT_TRUE(row->state().checkable);
  EXPECT_TRUE(row->state().checked);
  EXPECT_EQ(list->indexOfChild(row), 2);
  row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(artists_.selected(2));
  artists_.clear();
  artists_.flush();
  EXPECT_FALSE(row->isValid());
}

}  // namespace
}  // namespace plimo
