// Finding in a list: what matches, the search in pieces, and the field over the list.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "desktop/binders/binder.h"
#include "desktop/widgets/find_bar.h"
#include "desktop/widgets/list_view.h"
#include "desktop/widgets/row_search.h"

namespace plimo {
namespace {

SearchText wanted(const char* text) { return SearchText(QString::fromUtf8(text)); }

TEST(SearchText, IgnoresCaseAndAccents) {
  EXPECT_TRUE(wanted("bjork").isIn("Björk - Jóga"));
  EXPECT_TRUE(wanted("JÓGA").isIn("bjork - joga"));
  EXPECT_TRUE(wanted("tiger").isIn("Eye of the TIGER"));
  EXPECT_TRUE(wanted("Мир").isIn("миру мир"));
  EXPECT_FALSE(wanted("lion").isIn("Eye of the Tiger"));
  EXPECT_FALSE(wanted("ö").isIn("Bjrk"));
  EXPECT_FALSE(wanted("").isIn("anything"));
  EXPECT_FALSE(wanted("tiger").isIn(""));
}

TEST(SearchText, ComposedAndDecomposedFormsAreEqual) {
  EXPECT_TRUE(wanted("é").isIn("cafe\u0301"));
  EXPECT_TRUE(wanted("e\u0301").isIn("café"));
}

TEST(SearchText, ABeginningIgnoresLeadingBlanks) {
  EXPECT_TRUE(wanted("be").begins("  Beatles"));
  EXPECT_TRUE(wanted("Be").begins("bË"));
  EXPECT_FALSE(wanted("ea").begins("Beatles"));
}

TEST(SearchText, TheRangeIsThatOfTheShownText) {
  const auto range = wanted("jog").rangeIn(QStringLiteral("Björk - Jóga"));
  ASSERT_TRUE(range);
  EXPECT_EQ(range->first, 8);
  EXPECT_EQ(range->length, 3);
  EXPECT_FALSE(wanted("x").rangeIn(QStringLiteral("Björk")));
}

class Finding : public testing::Test {
 protected:
  Finding() { window_.resize(300, 400); }

  ListView& show(ListBox& list, const std::vector<std::string>& texts) {
    list.addAll(std::vector<std::string_view>(texts.begin(), texts.end()));
    list.flush();
    binder_ = bindList(list, &window_);
    list.setGeometry({0, 0, 300 * 15, 400 * 15});
    binder_->applyVisible(true);
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
    return static_cast<ListView&>(*binder_->widget());
  }

  void press(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
    QApplication::processEvents();
  }

  void type(QWidget* widget, const QString& text) {
    for (const QChar character : text) press(widget, 0, QString(character));
  }

  QLineEdit* field(ListView& view) { return view.findChild<QLineEdit*>(QStringLiteral("findField")); }
  QString count(ListView& view) { return view.findChild<QLabel*>(QStringLiteral("findCount"))->text(); }

  Dispatcher dispatcher_;
  Form form_{dispatcher_, "Form"};
  ListBox songs_{form_, "songs", ListBox::Style::multiSelection};
  ListBox artists_{form_, "artists", ListBox::Style::checkBoxes, ListBox::Order::sorted};
  QWidget window_;
  std::unique_ptr<Binder> binder_;
};

TEST_F(Finding, EnterWalksThroughTheMatchesAndAround) {
  ListView& view = show(songs_, {"Alpha", "Beta", "alphabet", "Gamma", "ALPHA two"});
  view.find();
  type(field(view), QStringLiteral("alpha"));
  EXPECT_EQ(count(view), QStringLiteral("1 of 3"));
  EXPECT_EQ(songs_.current(), std::nullopt) << "typing only marks";
  std::vector<std::size_t> visited;
  for (int i = 0; i < 4; ++i) {
    press(field(view), Qt::Key_Return);
    visited.push_back(songs_.current().value_or(99));
  }
  EXPECT_EQ(visited, (std::vector<std::size_t>{0, 2, 4, 0}));
  press(field(view), Qt::Key_Return, {}, Qt::ShiftModifier);
  EXPECT_EQ(songs_.current(), 4U);
  EXPECT_EQ(count(view), QStringLiteral("3 of 3"));
}

TEST_F(Finding, TheSearchBeginsAtTheCurrentRow) {
  ListView& view = show(songs_, {"one", "two", "one more", "two"});
  songs_.userMoveCurrent(1);
  view.find();
  type(field(view), QStringLiteral("one"));
  press(field(view), Qt::Key_Return);
  EXPECT_EQ(songs_.current(), 2U);
  press(field(view), Qt::Key_Return);
  EXPECT_EQ(songs_.current(), 0U) << "around the end";
}

TEST_F(Finding, KeysOfTheFieldAreNoCommandsOfTheList) {
  std::string keys;
  songs_.keyPress = [&keys](char key) { keys += key; };
  ListView& view = show(songs_, {"one", "two"});
  view.find();
  type(field(view), QStringLiteral("w"));
  press(field(view), Qt::Key_Backspace, QStringLiteral("\b"));
  press(field(view), Qt::Key_Backspace, QStringLiteral("\b"));
  press(field(view), Qt::Key_Return, QStringLiteral("\r"));
  press(field(view), Qt::Key_Escape);
  EXPECT_EQ(keys, "");
  EXPECT_FALSE(field(view)->isVisible());
}

TEST_F(Finding, ATextThatIsNowhereIsReported) {
  ListView& view = show(songs_, {"one", "two"});
  view.find();
  type(field(view), QStringLiteral("three"));
  EXPECT_EQ(count(view), QStringLiteral("none"));
  press(field(view), Qt::Key_Return);
  EXPECT_EQ(songs_.current(), std::nullopt);
}

TEST_F(Finding, RowsThatVanishWhileTheFieldIsOpenAreNoMatches) {
  ListView& view = show(songs_, {"one", "two", "one", "one"});
  view.find();
  type(field(view), QStringLiteral("one"));
  songs_.clear();
  songs_.add("one");
  songs_.flush();
  QApplication::processEvents();
  EXPECT_EQ(count(view), QStringLiteral("1"));
  press(field(view), Qt::Key_Return);
  EXPECT_EQ(songs_.current(), 0U);
}

TEST_F(Finding, TheRowsMakeRoomForTheField) {
  ListView& view = show(songs_, {"one", "two"});
  const int before = view.viewport()->height();
  view.find();
  QApplication::processEvents();
  const auto* bar = view.findChild<QWidget*>(QStringLiteral("findBar"));
  EXPECT_EQ(view.viewport()->height(), before - bar->height());
  EXPECT_GE(view.viewport()->mapTo(&view, QPoint(0, 0)).y(), bar->geometry().bottom());
  press(field(view), Qt::Key_Escape);
  EXPECT_EQ(view.viewport()->height(), before);
}

TEST_F(Finding, AMillionRowsAreSearchedInPieces) {
  std::vector<std::string> texts(1'000'000);
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = "Song " + std::to_string(i);
  ListView& view = show(songs_, texts);
  RowSearch search(view.model(), nullptr);
  int pieces = 0;
  QObject::connect(&search, &RowSearch::advanced, [&pieces] { ++pieces; });
  search.start(wanted("song 999999"), 0);
  EXPECT_FALSE(search.finished()) << "the first piece ends long before the last row";
  while (!search.finished()) QApplication::processEvents();
  EXPECT_GT(pieces, 1);
  EXPECT_EQ(search.first(), 999'999U);
}

TEST_F(Finding, OnlyTickedArtistsAreShownOnRequest) {
  ListView& view = show(artists_, {"Abba", "Beck", "Cher", "Dido", "Enya"});
  artists_.userTick(1, true);
  artists_.userTick(3, true);
  view.find();
  auto* only = view.findChild<QToolButton*>(QStringLiteral("tickedOnly"));
  only->click();
  const int middle = view.rowHeight() / 2;
  EXPECT_EQ(view.rowAt({50, middle}), 1U);
  EXPECT_EQ(view.rowAt({50, view.rowHeight() + middle}), 3U);
  EXPECT_EQ(view.rowAt({50, 2 * view.rowHeight() + middle}), std::nullopt);
  EXPECT_TRUE(view.rowRect(0).isEmpty());
  press(&view, Qt::Key_Home);
  EXPECT_EQ(artists_.current(), 1U);
  press(&view, Qt::Key_Down);
  EXPECT_EQ(artists_.current(), 3U);
  artists_.userTick(3, false);
  EXPECT_EQ(view.rowAt({50, view.rowHeight() + middle}), 3U) << "it stays until the filter is set again";
  press(field(view), Qt::Key_Escape);
  EXPECT_EQ(view.rowAt({50, middle}), 0U) << "the filter ends with the field";
}

TEST_F(Finding, TypingInTheArtistsGoesToTheFirstThatBeginsSo) {
  ListView& view = show(artists_, {"Abba", "Björk", "Bob Dylan", "Cher"});
  type(&view, QStringLiteral("b"));
  EXPECT_EQ(artists_.text(*artists_.current()), "Björk");
  type(&view, QStringLiteral("O"));
  EXPECT_EQ(artists_.text(*artists_.current()), "Bob Dylan");
  type(&view, QStringLiteral("x"));
  EXPECT_EQ(artists_.text(*artists_.current()), "Bob Dylan") << "nothing begins so";
}

}  // namespace
}  // namespace plimo
