#include "controls/list_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/form.h"

namespace plimo {
namespace {

struct Window {
  Dispatcher dispatcher;
  Form form{dispatcher, "form"};
  ListBox songs{form, "songs", ListBox::Style::multiSelection};
  ListBox ticks{form, "ticks", ListBox::Style::checkBoxes};
  ListBox sorted{form, "sorted", ListBox::Style::multiSelection, ListBox::Order::sorted};

  void fill(ListBox& list, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) list.add(text);
  }
};

std::vector<std::string> rows(const ListBox& list) {
  std::vector<std::string> texts;
  for (std::size_t row = 0; row < list.count(); ++row) texts.emplace_back(list.text(row));
  return texts;
}

using Texts = std::vector<std::string>;

// Mirrors a list from its notifications alone.
class Follower : public ListObserver {
 public:
  explicit Follower(ListBox& list) : list_(list) { list.addRowObserver(*this); }
  Follower(const Follower&) = delete;
  Follower& operator=(const Follower&) = delete;
  ~Follower() override { list_.removeRowObserver(*this); }
  void propertyChanged(Property) override {}
  void rowsReset() override { seen = rows(list_); }
  void rowsAppended(std::size_t first, std::size_t count) override {
    ASSERT_EQ(first, seen.size());
    for (std::size_t row = first; row < first + count; ++row) seen.emplace_back(list_.text(row));
    ++appends;
  }
  void rowsRemoved(std::size_t first, std::size_t count) override {
    const auto begin = seen.begin() + static_cast<std::ptrdiff_t>(first);
    seen.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
  }
  void selectionChanged() override { ++selections; }
  void currentChanged() override {}
  void topChanged() override {}

  Texts seen;
  int appends = 0;
  int selections = 0;

 private:
  ListBox& list_;
};

TEST(ListBox, ASortedListIgnoresCaseAndIsStable) {
  Window window;
  window.fill(window.sorted, {"b", "a", "B", "C", "A", "é"});
  EXPECT_EQ(rows(window.sorted), (Texts{"a", "A", "b", "B", "C", "é"}));
  const std::vector<std::string_view> more = {"B", "É", "aa"};
  window.sorted.addAll(more);
  EXPECT_EQ(rows(window.sorted), (Texts{"a", "A", "aa", "b", "B", "B", "C", "é", "É"}));
}

TEST(ListBox, TheCurrentRowFollowsItsTextWhenRowsAboveAreRemoved) {
  Window window;
  window.fill(window.songs, {"a", "b", "c", "d"});
  window.songs.setCurrent(2);
  window.songs.remove(0);
  EXPECT_EQ(window.songs.currentText(), "c");
  window.songs.removeAll(std::vector<std::size_t>{0});
  EXPECT_EQ(window.songs.currentText(), "c");
  EXPECT_EQ(window.songs.current(), 0U);
}

TEST(ListBox, ARemovedCurrentRowsTextStaysCurrentUntilTheHandlerEnds) {
  Window window;
  window.fill(window.songs, {"a", "b", "c", "d"});
  window.songs.setCurrent(1);
  window.dispatcher.run([&] {
    window.songs.remove(1);
    EXPECT_EQ(window.songs.currentText(), "b");
    window.songs.remove(0);
    EXPECT_EQ(window.songs.currentText(), "b");
  });
  EXPECT_EQ(window.songs.currentText(), "c");
  window.songs.setCurrent(1);
  window.dispatcher.run([&] { window.songs.removeAll(std::vector<std::size_t>{1}); });
  EXPECT_EQ(window.songs.currentText(), "c");
  window.dispatcher.run([&] { window.songs.remove(0); });
  EXPECT_EQ(window.songs.current(), std::nullopt);
}

TEST(ListBox, RemoveAllEqualsRemovingOneByOne) {
  for (unsigned flags = 0; flags < 64; ++flags) {
    for (std::size_t current = 0; current < 6; ++current) {
      Window window;
      Window reference;
      window.fill(window.songs, {"0", "1", "2", "3", "4", "5"});
      reference.fill(reference.songs, {"0", "1", "2", "3", "4", "5"});
      window.songs.setCurrent(current);
      reference.songs.setCurrent(current);
      window.songs.setSelected(3, true);
      reference.songs.setSelected(3, true);
      std::vector<std::size_t> removed;
      for (std::size_t row = 0; row < 6; ++row) {
        if ((flags >> row & 1U) != 0) removed.push_back(row);
      }
      window.dispatcher.run([&] { window.songs.removeAll(removed); });
      reference.dispatcher.run([&] {
        for (std::size_t i = removed.size(); i-- > 0;) reference.songs.remove(removed[i]);
      });
      EXPECT_EQ(rows(window.songs), rows(reference.songs));
      EXPECT_EQ(window.songs.current(), reference.songs.current()) << flags << " " << current;
      EXPECT_EQ(window.songs.selectedCount(), reference.songs.selectedCount());
    }
  }
}

TEST(ListBox, ATickMakesItsRowCurrentAndIsRaisedOnlyWhenItChanges) {
  Window window;
  window.fill(window.ticks, {"a", "b"});
  std::vector<std::size_t> raised;
  window.ticks.tick = [&](std::size_t row) {
    EXPECT_EQ(window.ticks.current(), row);
    raised.push_back(row);
  };
  window.ticks.setSelected(1, true);
  window.ticks.setSelected(1, true);
  window.ticks.setSelected(0, false);
  window.ticks.setSelected(1, false);
  EXPECT_EQ(raised, (std::vector<std::size_t>{1, 1}));
}

TEST(ListBox, AUserTickRaisesTickThenClick) {
  Window window;
  window.fill(window.ticks, {"a", "b"});
  Texts events;
  window.ticks.tick = [&](std::size_t row) { events.push_back("tick " + std::to_string(row)); };
  window.ticks.click = [&] { events.emplace_back("click"); };
  window.ticks.userTick(1, true);
  window.ticks.userKey(' ');
  EXPECT_EQ(events, (Texts{"tick 1", "click", "tick 1", "click"}));
  EXPECT_EQ(window.ticks.selectedCount(), 0U);
}

TEST(ListBox, ClicksSelectWithModifiers) {
  Window window;
  window.fill(window.songs, {"0", "1", "2", "3", "4"});
  const auto selected = [&] {
    std::vector<std::size_t> which;
    for (std::size_t row = 0; row < window.songs.count(); ++row) {
      if (window.songs.selected(row)) which.push_back(row);
    }
    return which;
  };
  using Rows = std::vector<std::size_t>;
  window.songs.userClickRow(1, ListBox::Keys::none);
  EXPECT_EQ(selected(), (Rows{1}));
  window.songs.userClickRow(3, ListBox::Keys::control);
  EXPECT_EQ(selected(), (Rows{1, 3}));
  window.songs.userClickRow(4, ListBox::Keys::shift);
  EXPECT_EQ(selected(), (Rows{3, 4}));
  window.songs.userMoveCurrent(0);
  EXPECT_EQ(selected(), (Rows{3, 4}));
  EXPECT_EQ(window.songs.current(), 0U);
  window.songs.userExtendTo(2);
  EXPECT_EQ(selected(), (Rows{0, 1, 2}));
  window.songs.userExtendTo(1);
  EXPECT_EQ(selected(), (Rows{0, 1}));
}

TEST(ListBox, ObserversGetTheStateThenRangesOfChanges) {
  Window window;
  window.fill(window.songs, {"a", "b"});
  Follower follower(window.songs);
  EXPECT_EQ(follower.seen, (Texts{"a", "b"}));
  window.dispatcher.run([&] { window.fill(window.songs, {"c", "d", "e"}); });
  EXPECT_EQ(follower.appends, 1);
  EXPECT_EQ(follower.seen, rows(window.songs));
  window.dispatcher.run([&] { window.songs.remove(1); });
  EXPECT_EQ(follower.seen, rows(window.songs));
  window.dispatcher.run([&] {
    window.songs.remove(0);
    window.songs.add("f");
    window.songs.remove(1);
  });
  EXPECT_EQ(follower.seen, rows(window.songs));
  window.dispatcher.run([&] {
    window.songs.clear();
    window.songs.add("z");
  });
  EXPECT_EQ(follower.seen, (Texts{"z"}));
}

TEST(ListBox, RemovedTextsAreReleased) {
  Window window;
  for (int i = 0; i < 20000; ++i) window.songs.add("a song with a name of some length " + std::to_string(i));
  const std::size_t full = window.songs.memory();
  while (window.songs.count() > 100) window.songs.remove(window.songs.count() - 1);
  EXPECT_EQ(window.songs.text(99), "a song with a name of some length 99");
  EXPECT_LT(window.songs.memory(), full);
}

TEST(ListBox, AddAllKeepsTheOrder) {
  Window window;
  Texts texts;
  for (int i = 0; i < 50000; ++i)
    texts.push_back(std::string(static_cast<std::size_t>(i % 5), 'x') + std::to_string(i));
  window.songs.add("first");
  window.songs.addAll(std::vector<std::string_view>(texts.begin(), texts.end()));
  window.songs.add("last");
  texts.insert(texts.begin(), "first");
  texts.emplace_back("last");
  EXPECT_TRUE(rows(window.songs) == texts);
}

TEST(ListBox, AListFilledFromAnotherIsIndependent) {
  Window window;
  ListBox copy{window.form, "copy", ListBox::Style::multiSelection};
  window.fill(window.songs, {"a", "b", "c"});
  window.songs.setSelected(1, true);
  window.songs.setCurrent(1);
  copy.add("old");
  copy.assign(window.songs);
  EXPECT_EQ(rows(copy), (Texts{"a", "b", "c"}));
  EXPECT_EQ(copy.selectedCount(), 0U);
  EXPECT_EQ(copy.current(), std::nullopt);
  copy.add("d");
  window.songs.add("e");
  window.songs.remove(0);
  EXPECT_EQ(rows(copy), (Texts{"a", "b", "c", "d"}));
  EXPECT_EQ(rows(window.songs), (Texts{"b", "c", "e"}));
  copy.addAll(window.songs);
  window.songs.clear();
  EXPECT_EQ(rows(copy), (Texts{"a", "b", "c", "d", "b", "c", "e"}));
}

TEST(ListBox, AppendingToASharedStoreDoesNotAffectTheOtherList) {
  Window window;
  ListBox copy{window.form, "copy", ListBox::Style::multiSelection};
  window.songs.add("a");
  // One by one, so that the store has spare capacity.
  for (int i = 0; i < 1000; ++i) window.songs.add("a song with a name of some length");
  copy.assign(window.songs);
  const std::string_view text = window.songs.text(0);
  const std::size_t held = window.songs.memory();
  for (int i = 0; i < 10000; ++i) copy.add("another song");
  EXPECT_EQ(window.songs.text(0).data(), text.data());
  EXPECT_EQ(text, "a");
  EXPECT_EQ(window.songs.memory(), held);
}

TEST(ListBox, AssignReordersRows) {
  Window window;
  window.fill(window.songs, {"a", "b", "c"});
  Follower follower(window.songs);
  window.dispatcher.run([&] { window.songs.assign(window.songs, std::vector<std::size_t>{2, 0, 2}); });
  EXPECT_EQ(rows(window.songs), (Texts{"c", "a", "c"}));
  EXPECT_EQ(follower.seen, rows(window.songs));
}

TEST(ListBox, AListAssignedAFewRowsReleasesTheOtherTexts) {
  Window window;
  ListBox copy{window.form, "copy", ListBox::Style::multiSelection};
  for (int i = 0; i < 20000; ++i) window.songs.add("a song with a name of some length " + std::to_string(i));
  const std::vector<std::size_t> places = {19999, 0, 19999};
  copy.assign(window.songs, places);
  EXPECT_EQ(rows(copy), (Texts{"a song with a name of some length 19999", "a song with a name of some length 0",
                               "a song with a name of some length 19999"}));
  EXPECT_LT(copy.memory(), 1000U);
}

TEST(ListBox, ASortedListSortsAssignedRows) {
  Window window;
  window.fill(window.songs, {"b", "C", "a"});
  window.sorted.add("z");
  window.sorted.assign(window.songs);
  EXPECT_EQ(rows(window.sorted), (Texts{"a", "b", "C"}));
  window.sorted.addAll(window.songs);
  EXPECT_EQ(rows(window.sorted), (Texts{"a", "a", "b", "b", "C", "C"}));
}

TEST(ListBox, AFailingHandlerIsReportedAndTheCurrentRowIsResolved) {
  Window window;
  int failures = 0;
  window.dispatcher.failed = [&](const RuntimeError&) { ++failures; };
  window.fill(window.songs, {"a", "b"});
  window.songs.setCurrent(0);
  window.songs.keyPress = [&](char) {
    window.songs.remove(0);
    throw RuntimeError(ErrorNumber::fileNotFound);
  };
  window.songs.userKey('x');
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(window.songs.currentText(), "b");
}

TEST(ListBox, UserSelectInACheckBoxListTicksExactlyTheseRows) {
  Window window;
  window.fill(window.ticks, {"a", "b", "c", "d"});
  window.ticks.setSelected(0, true);
  window.ticks.setSelected(2, true);
  std::vector<std::size_t> ticks;
  int clicks = 0;
  window.ticks.tick = [&](std::size_t row) { ticks.push_back(row); };
  window.ticks.click = [&] { ++clicks; };
  window.ticks.userSelect(std::vector<std::size_t>{3, 2});
  EXPECT_EQ(ticks, (std::vector<std::size_t>{0, 3}));
  EXPECT_EQ(window.ticks.selectedCount(), 2U);
  EXPECT_EQ(window.ticks.currentText(), "c");
  window.ticks.userSelect({});
  EXPECT_EQ(window.ticks.selectedCount(), 0U);
  EXPECT_EQ(window.ticks.currentText(), "c");
  EXPECT_EQ(clicks, 2);
}

}  // namespace
}  // namespace plimo
