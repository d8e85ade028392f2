// Shuffle, sort, drop and removal one after the other, held against a list of names on paper: every step done row by
// row, as a person would.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "support/test_program.h"

namespace plimo {
namespace {

using Texts = std::vector<std::string>;

struct Paper {
  Texts large;
  Texts compact;
  bool largeShows = true;
  std::string pickedUp;

  Texts& shown() { return largeShows ? large : compact; }

  void shuffle() {
    if (large.size() < compact.size()) large = compact;
    compact.clear();
    for (std::size_t i = 0; i < large.size(); i += 2) compact.push_back(large[i]);
    for (std::size_t i = 1; i < large.size(); i += 2) compact.push_back(large[i]);
    large = compact;
    largeShows = false;
  }

  void sort() {
    if (large.size() > compact.size()) compact = large;
    large.clear();
    for (const std::string& song : compact) {
      const auto small = [](std::string text) {
        std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
        return text;
      };
      auto place = large.begin();
      while (place != large.end() && small(*place) <= small(song)) ++place;
      large.insert(place, song);
    }
    largeShows = true;
  }

  void pickUp(std::size_t row) { pickedUp = shown()[row]; }

  void drop(std::size_t row) {
    const std::string target = shown()[row];
    if (largeShows) compact = large;
    largeShows = false;
    if (pickedUp.empty()) return;
    Texts result;
    for (const std::string& song : compact) {
      if (song != pickedUp) result.push_back(song);
      if (song == target) result.push_back(pickedUp);
    }
    compact = result;
    pickedUp.clear();
  }

  void remove(std::size_t row) {
    const std::string text = shown()[row];
    const std::size_t bound = shown().size();
    for (std::size_t k = 0; k < bound; ++k) {
      if (k < shown().size() && shown()[k] == text) shown().erase(shown().begin() + static_cast<std::ptrdiff_t>(k));
    }
  }
};

class Order : public testing::Test {
 protected:
  // Both start with these songs in the large list, nothing picked up.
  void begin(const Texts& songs) {
    paper_ = {};
    paper_.large = songs;
    Form1& form = program_.form();
    dropWhatIsPickedUp();
    form.List4.clear();
    form.List6.clear();
    for (const std::string& song : songs) form.List4.add(song);
    form.List4.setVisible(true);
    form.List6.setVisible(false);
  }

  void dropWhatIsPickedUp() {
    Form1& form = program_.form();
    if (form.pickedUp().empty()) return;
    form.List6.clear();
    form.List6.add("target");
    form.List6.setCurrent(0);
    form.List6.userKey('w');
    ASSERT_TRUE(form.pickedUp().empty());
  }

  // A command by its letter: Shuffle, sOrt, and the keys q, w and x on a row.
  void give(char command, std::size_t row) {
    if (command == 'S') {
      paper_.shuffle();
      program_.form().Shuffle.userClick();
      return;
    }
    if (command == 'O') {
      paper_.sort();
      program_.form().sort.userClick();
      return;
    }
    if (row >= paper_.shown().size()) return;
    ListBox& list = program_.form().finalList();
    list.userMoveCurrent(row);
    list.userKey(command);
    if (command == 'q') paper_.pickUp(row);
    if (command == 'w') paper_.drop(row);
    if (command == 'x') paper_.remove(row);
  }

  static Texts rows(const ListBox& list) {
    Texts texts;
    for (std::size_t row = 0; row < list.count(); ++row) texts.emplace_back(list.text(row));
    return texts;
  }

  void expectTheSame(const std::string& steps) {
    Form1& form = program_.form();
    ASSERT_EQ(rows(form.List4), paper_.large) << steps;
    ASSERT_EQ(rows(form.List6), paper_.compact) << steps;
    ASSERT_EQ(form.List4.visible(), paper_.largeShows) << steps;
    ASSERT_EQ(form.List6.visible(), !paper_.largeShows) << steps;
  }

  TestProgram program_;
  Paper paper_;
};

TEST_F(Order, FourCommandsInAnyOrderDoWhatTheyDoOnPaper) {
  struct Step {
    char command;
    std::size_t row;
  };
  const std::vector<Step> steps = {{'S', 0}, {'O', 0}, {'q', 0}, {'q', 2}, {'w', 1}, {'w', 3}, {'x', 1}};
  for (const Texts& songs : {Texts{"A", "B", "C", "D"}, Texts{"b", "A", "B", "b"}, Texts{"c", "c", "A"}, Texts{}}) {
    for (std::size_t sequence = 0; sequence < 7 * 7 * 7 * 7; ++sequence) {
      begin(songs);
      std::string told;
      std::size_t rest = sequence;
      for (int i = 0; i < 4; ++i, rest /= 7) {
        const Step step = steps[rest % 7];
        give(step.command, step.row);
        told += step.command + std::to_string(step.row) + " ";
        expectTheSame(told);
        if (HasFatalFailure()) return;
      }
    }
  }
}

TEST_F(Order, EveryOrderOfFiveSongsIsSortedAndDealtAsOnPaper) {
  Texts songs = {"A", "a", "B", "c", "D"};
  std::sort(songs.begin(), songs.end());
  do {
    for (const std::string_view commands : {"SS", "SO", "OS", "OO"}) {
      begin(songs);
      for (const char command : commands) give(command, 0);
      expectTheSame(std::string(commands));
      if (HasFatalFailure()) return;
    }
  } while (std::next_permutation(songs.begin(), songs.end()));
}

TEST_F(Order, ASongThatWasRemovedCanStillBeDropped) {
  begin({"A", "B", "C", "B"});
  for (const auto& [command, row] : {std::pair{'q', 1U}, {'x', 1U}, {'w', 0U}}) give(command, row);
  expectTheSame("q x w");
  EXPECT_EQ(rows(program_.form().List6), (Texts{"A", "B", "C"}));
}

}  // namespace
}  // namespace plimo
