// Sequences of shuffle, sort, drop and removal, compared with a reference implementation that works row by row on plain
// lists of strings.
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

// What both final lists and the picked-up song must be after the same commands.
struct ReferenceLists {
  Texts large;
  Texts compact;
  bool largeVisible = true;
  std::string pickedUp;

  Texts& visibleList() { return largeVisible ? large : compact; }

  void shuffle() {
    if (large.size() < compact.size()) large = compact;
    compact.clear();
    for (std::size_t i = 0; i < large.size(); i += 2) compact.push_back(large[i]);
    for (std::size_t i = 1; i < large.size(); i += 2) compact.push_back(large[i]);
    large = compact;
    largeVisible = false;
  }

  void sort() {
    if (large.size() > compact.size()) compact = large;
    large.clear();
    for (const std::string& song : compact) {
      const auto lower = [](std::string text) {
        std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
        return text;
      };
      auto position = large.begin();
      while (position != large.end() && lower(*position) <= lower(song)) ++position;
      large.insert(position, song);
    }
    largeVisible = true;
  }

  void pickUp(std::size_t row) { pickedUp = visibleList()[row]; }

  void drop(std::size_t row) {
    const std::string target = visibleList()[row];
    if (largeVisible) compact = large;
    largeVisible = false;
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
    const std::string text = visibleList()[row];
    const std::size_t bound = visibleList().size();
    for (std::size_t k = 0; k < bound; ++k) {
      Texts& list = visibleList();
      if (k < list.size() && list[k] == text) list.erase(list.begin() + static_cast<std::ptrdiff_t>(k));
    }
  }
};

class Order : public testing::Test {
 protected:
  // Both begin with these songs in the large list and no song picked up.
  void reset(const Texts& songs) {
    reference_ = {};
    reference_.large = songs;
    Form1& form = program_.form();
    dropPickedUpSong();
    form.List4.clear();
    form.List6.clear();
    for (const std::string& song : songs) form.List4.add(song);
    form.List4.setVisible(true);
    form.List6.setVisible(false);
  }

  void dropPickedUpSong() {
    Form1& form = program_.form();
    if (form.pickedUp().empty()) return;
    form.List6.clear();
    form.List6.add("target");
    form.List6.setCurrent(0);
    form.List6.userKey('w');
    ASSERT_TRUE(form.pickedUp().empty());
  }

  // Applies a command to both: S shuffles, O sorts, and q, w and x are the keys, pressed on the row.
  void apply(char command, std::size_t row) {
    if (command == 'S') {
      reference_.shuffle();
      program_.form().Shuffle.userClick();
      return;
    }
    if (command == 'O') {
      reference_.sort();
      program_.form().sort.userClick();
      return;
    }
    if (row >= reference_.visibleList().size()) return;
    ListBox& list = program_.form().finalList();
    list.userMoveCurrent(row);
    list.userKey(command);
    if (command == 'q') reference_.pickUp(row);
    if (command == 'w') reference_.drop(row);
    if (command == 'x') reference_.remove(row);
  }

  static Texts rows(const ListBox& list) {
    Texts texts;
    for (std::size_t row = 0; row < list.count(); ++row) texts.emplace_back(list.text(row));
    return texts;
  }

  void expectEqual(const std::string& steps) {
    Form1& form = program_.form();
    ASSERT_EQ(rows(form.List4), reference_.large) << steps;
    ASSERT_EQ(rows(form.List6), reference_.compact) << steps;
    ASSERT_EQ(form.List4.visible(), reference_.largeVisible) << steps;
    ASSERT_EQ(form.List6.visible(), !reference_.largeVisible) << steps;
  }

  TestProgram program_;
  ReferenceLists reference_;
};

TEST_F(Order, AnyFourCommandsGiveTheReferenceLists) {
  struct Step {
    char command;
    std::size_t row;
  };
  const std::vector<Step> steps = {{'S', 0}, {'O', 0}, {'q', 0}, {'q', 2}, {'w', 1}, {'w', 3}, {'x', 1}};
  for (const Texts& songs : {Texts{"A", "B", "C", "D"}, Texts{"b", "A", "B", "b"}, Texts{"c", "c", "A"}, Texts{}}) {
    for (std::size_t sequence = 0; sequence < 7 * 7 * 7 * 7; ++sequence) {
      reset(songs);
      std::string done;
      std::size_t rest = sequence;
      for (int i = 0; i < 4; ++i, rest /= 7) {
        const Step step = steps[rest % 7];
        apply(step.command, step.row);
        done += step.command + std::to_string(step.row) + " ";
        expectEqual(done);
        if (HasFatalFailure()) return;
      }
    }
  }
}

TEST_F(Order, ShuffleAndSortGiveTheReferenceListsForEveryOrderOfFiveSongs) {
  Texts songs = {"A", "a", "B", "c", "D"};
  std::sort(songs.begin(), songs.end());
  do {
    for (const std::string_view commands : {"SS", "SO", "OS", "OO"}) {
      reset(songs);
      for (const char command : commands) apply(command, 0);
      expectEqual(std::string(commands));
      if (HasFatalFailure()) return;
    }
  } while (std::next_permutation(songs.begin(), songs.end()));
}

TEST_F(Order, ARemovedSongCanStillBeDropped) {
  reset({"A", "B", "C", "B"});
  for (const auto& [command, row] : {std::pair{'q', 1U}, {'x', 1U}, {'w', 0U}}) apply(command, row);
  expectEqual("q x w");
  EXPECT_EQ(rows(program_.form().List6), (Texts{"A", "B", "C"}));
}

}  // namespace
}  // namespace plimo
