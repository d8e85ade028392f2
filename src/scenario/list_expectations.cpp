// Expectations of what stands in the lists.
#include <algorithm>
#include <array>
#include <unordered_set>
#include <vector>

#include "scenario/command.h"
#include "scenario/session.h"
#include "scenario/words.h"

namespace plimo::scenario {

namespace {

constexpr std::size_t rowsTold = 20;  // of each side in a report

// The named list; null, and a failed expectation, before the first start.
const ListBox* named(Session& session, const Line& line) {
  return static_cast<const ListBox*>(session.control(line.words[0]));
}

// "3 rows "A" "B" "C"", the first ones only.
template <class Text>
std::string told(std::size_t count, const Text& text) {
  std::string result = std::to_string(count) + (count == 1 ? " row" : " rows");
  for (std::size_t row = 0; row < std::min(count, rowsTold); ++row) result.append(" ").append(text(row));
  return count > rowsTold ? result + " ..." : result;
}

void rows(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  const auto wanted = line.from(1);
  bool same = list->count() == wanted.size();
  for (std::size_t row = 0; same && row < wanted.size(); ++row) same = list->text(row) == wanted[row];
  if (same) return;
  session.verdicts.fail(
      list->name() + " with " + told(wanted.size(), [&](std::size_t row) { return quoted(wanted[row]); }),
      told(list->count(), [&](std::size_t row) { return quoted(list->text(row)); }));
}

void count(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  if (static_cast<long long>(list->count()) != *wholeNumber(line.words[1])) {
    session.verdicts.fail(list->name() + " with " + line.words[1] + " rows", std::to_string(list->count()));
  }
}

std::vector<std::size_t> selectedRows(const ListBox& list) {
  std::vector<std::size_t> selected;
  for (std::size_t row = 0; row < list.count(); ++row) {
    if (list.selected(row)) selected.push_back(row);
  }
  return selected;
}

void selected(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  std::vector<std::size_t> wanted;
  for (const std::string& word : line.from(1)) wanted.push_back(static_cast<std::size_t>(*wholeNumber(word)));
  std::sort(wanted.begin(), wanted.end());
  wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
  const std::vector<std::size_t> got = selectedRows(*list);
  if (got == wanted) return;
  const auto numbers = [](const std::vector<std::size_t>& from) {
    return told(from.size(), [&](std::size_t i) { return std::to_string(from[i]); });
  };
  session.verdicts.fail(list->name() + " selected in " + numbers(wanted), numbers(got));
}

void ticked(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  const auto words = line.from(1);
  const std::unordered_set<std::string_view> wanted(words.begin(), words.end());
  std::unordered_set<std::string_view> found;
  bool same = true;
  for (std::size_t row = 0; row < list->count(); ++row) {
    const bool named = wanted.contains(list->text(row));
    if (named) found.insert(list->text(row));
    if (named != list->selected(row)) same = false;
  }
  if (same && found.size() == wanted.size()) return;
  const std::vector<std::size_t> got = selectedRows(*list);
  session.verdicts.fail(
      list->name() + " ticked in " + told(words.size(), [&](std::size_t i) { return quoted(words[i]); }),
      told(got.size(), [&](std::size_t i) { return quoted(list->text(got[i])); }));
}

void current(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr || list->currentText() == line.words[1]) return;
  session.verdicts.fail("the current row " + quoted(line.words[1]), quoted(list->currentText()));
}

void top(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr || list->top() == *wholeNumber(line.words[1])) return;
  session.verdicts.fail("the top row " + line.words[1], std::to_string(list->top()));
}

constexpr std::array commands{
    Command{"expect rows", "LIST TEXT*", rows},          Command{"expect count", "LIST COUNT", count},
    Command{"expect selected", "LIST COUNT*", selected}, Command{"expect ticked", "LIST TEXT*", ticked},
    Command{"expect current", "LIST TEXT", current},     Command{"expect top", "LIST WHOLE", top},
};

}  // namespace

std::span<const Command> listExpectations() { return commands; }

}  // namespace plimo::scenario
