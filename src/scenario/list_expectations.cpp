// Expectations of lists.
#include <algorithm>
#include <array>
#include <unordered_set>
#include <vector>

#include "scenario/command.h"
#include "scenario/literals.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

constexpr std::size_t maxReportedRows = 20;  // of each side

// The named list. Before the first start: a failed expectation, and null.
const ListBox* named(Session& session, const Line& line) {
  return static_cast<const ListBox*>(session.control(line.arguments[0]));
}

// For example: 3 rows "A" "B" "C"; at most maxReportedRows of them.
template <class Text>
std::string describeRows(std::size_t count, const Text& text) {
  std::string result = std::to_string(count) + (count == 1 ? " row" : " rows");
  for (std::size_t row = 0; row < std::min(count, maxReportedRows); ++row) result.append(" ").append(text(row));
  return count > maxReportedRows ? result + " ..." : result;
}

void rows(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  const auto wanted = line.argumentsFrom(1);
  bool same = list->count() == wanted.size();
  for (std::size_t row = 0; same && row < wanted.size(); ++row) same = list->text(row) == wanted[row];
  if (same) return;
  session.reporter.fail(
      list->name() + " with " + describeRows(wanted.size(), [&](std::size_t row) { return quoted(wanted[row]); }),
      describeRows(list->count(), [&](std::size_t row) { return quoted(list->text(row)); }));
}

void count(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  if (static_cast<long long>(list->count()) != *parseInteger(line.arguments[1])) {
    session.reporter.fail(list->name() + " with " + line.arguments[1] + " rows", std::to_string(list->count()));
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
  for (const std::string& word : line.argumentsFrom(1)) wanted.push_back(static_cast<std::size_t>(*parseInteger(word)));
  std::sort(wanted.begin(), wanted.end());
  wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
  const std::vector<std::size_t> got = selectedRows(*list);
  if (got == wanted) return;
  const auto numbers = [](const std::vector<std::size_t>& from) {
    return describeRows(from.size(), [&](std::size_t i) { return std::to_string(from[i]); });
  };
  session.reporter.fail(list->name() + " selected in " + numbers(wanted), numbers(got));
}

void ticked(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr) return;
  const auto words = line.argumentsFrom(1);
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
  session.reporter.fail(
      list->name() + " ticked in " + describeRows(words.size(), [&](std::size_t i) { return quoted(words[i]); }),
      describeRows(got.size(), [&](std::size_t i) { return quoted(list->text(got[i])); }));
}

void current(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr || list->currentText() == line.arguments[1]) return;
  session.reporter.fail("the current row " + quoted(line.arguments[1]), quoted(list->currentText()));
}

void top(Session& session, const Line& line) {
  const ListBox* list = named(session, line);
  if (list == nullptr || list->top() == *parseInteger(line.arguments[1])) return;
  session.reporter.fail("the top row " + line.arguments[1], std::to_string(list->top()));
}

constexpr std::array commands{
    Command{"expect rows", "LIST TEXT*", rows},          Command{"expect count", "LIST COUNT", count},
    Command{"expect selected", "LIST COUNT*", selected}, Command{"expect ticked", "LIST TEXT*", ticked},
    Command{"expect current", "LIST TEXT", current},     Command{"expect top", "LIST WHOLE", top},
};

}  // namespace

std::span<const Command> listExpectations() { return commands; }

}  // namespace plimo::scenario
