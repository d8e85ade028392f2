#include "controls/list_box.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "base/case_insensitive_sort.h"
#include "controls/form.h"

namespace plimo {

ListBox::ListBox(Form& form, std::string_view name, Style style, Order order, Control* container)
    : Control(form, ControlKind::listBox, name, container), style_(style), order_(order) {
  form.dispatcher().atEnd([this] { resolveRemovedCurrent(); });
  form.dispatcher().beforePaint([this] { flush(); });
}

std::string_view ListBox::text(std::size_t row) const { return texts_.text(rows_[row].offset, rows_[row].length); }

std::vector<std::string_view> ListBox::texts() const {
  std::vector<std::string_view> texts(rows_.size());
  for (std::size_t row = 0; row < texts.size(); ++row) texts[row] = text(row);
  return texts;
}

std::vector<std::size_t> ListBox::selectedRows() const {
  std::vector<std::size_t> rows;
  rows.reserve(selectedCount_);
  if (selectedCount_ == 0) return rows;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (selected(row)) rows.push_back(row);
  }
  return rows;
}

std::vector<std::string_view> ListBox::selectedTexts() const {
  std::vector<std::string_view> texts;
  texts.reserve(selectedCount_);
  for (const std::size_t row : selectedRows()) texts.push_back(text(row));
  return texts;
}

std::optional<std::size_t> ListBox::firstSelected() const {
  if (selectedCount_ == 0) return std::nullopt;
  const auto found = std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected != 0; });
  return static_cast<std::size_t>(found - rows_.begin());
}

std::vector<std::size_t> ListBox::sortedRows() const {
  const std::vector<std::uint32_t> order =
      caseInsensitiveOrder(rows_.size(), [this](std::size_t row) { return text(row); });
  return {order.begin(), order.end()};
}

// Comparing the lengths first avoids touching most texts.
inline bool ListBox::hasText(std::size_t row, std::string_view wanted) const {
  return rows_[row].length == wanted.size() && text(row) == wanted;
}

std::optional<std::size_t> ListBox::find(std::string_view wanted) const {
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (hasText(row, wanted)) return row;
  }
  return std::nullopt;
}

std::vector<std::size_t> ListBox::findAll(std::string_view wanted) const {
  std::vector<std::size_t> found;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (hasText(row, wanted)) found.push_back(row);
  }
  return found;
}

ListBox::Row ListBox::store(std::string_view text) {
  return {texts_.append(text), static_cast<std::uint32_t>(text.size()) & 0x7FFFFFFFU, 0};
}

void ListBox::clear() {
  if (rows_.empty() && !current_ && !removedText_) return;
  changedRows(0, 0, rows_.size());
  rows_ = {};
  texts_ = {};
  unused_ = 0;
  selectedCount_ = 0;
  current_.reset();
  removedText_.reset();
  anchor_ = 0;
  changes_.selection = changes_.current = true;
}

void ListBox::add(std::string_view text) {
  if (order_ == Order::sorted) {
    addAll(std::span(&text, 1));
    return;
  }
  rows_.push_back(store(text));
  changedRows(rows_.size() - 1, 1, 0);
}

// At least half as much again, so that many small steps do not copy all rows each time.
void ListBox::makeRoom(std::size_t rows) {
  const std::size_t needed = rows_.size() + rows;
  if (needed > rows_.capacity()) rows_.reserve(std::max(needed, rows_.capacity() + rows_.capacity() / 2));
}

void ListBox::addAll(std::span<const std::string_view> texts) {
  if (texts.empty()) return;
  const std::size_t old = rows_.size();
  std::size_t offset = texts_.append(texts);
  makeRoom(texts.size());
  for (const std::string_view text : texts) {
    rows_.push_back({offset, static_cast<std::uint32_t>(text.size()) & 0x7FFFFFFFU, 0});
    offset += text.size();
  }
  if (order_ == Order::sorted) {
    sortRows();
  } else {
    changedRows(old, texts.size(), 0);
  }
}

void ListBox::addAll(const ListBox& other) {
  if (other.empty()) return;
  const std::size_t old = rows_.size();
  if (old == 0) {
    replaceRows(other);
  } else {
    makeRoom(other.rows_.size());
    const std::size_t shift = texts_.append(other.texts_);
    unused_ += other.unused_;
    for (const Row& row : other.rows_) rows_.push_back({row.offset + shift, row.length, 0});
  }
  if (order_ == Order::sorted) {
    sortRows();
  } else {
    changedRows(old, other.rows_.size(), 0);
  }
}

void ListBox::assign(const ListBox& other) {
  forgetRows();
  replaceRows(other);
  if (order_ == Order::sorted) sortRows();
}

void ListBox::assign(const ListBox& other, std::span<const std::size_t> positions) {
  std::vector<Row> rows;
  if (&other != this) rows.swap(rows_);  // reuse the allocated memory
  rows.clear();
  rows.reserve(positions.size());
  std::size_t used = 0;
  for (const std::size_t position : positions) {
    const Row& row = other.rows_[position];
    used += row.length;
    rows.push_back({row.offset, row.length, 0});
  }
  forgetRows();
  rows_ = std::move(rows);
  texts_ = other.texts_;
  unused_ = texts_.size() - used;
  compactStore();
}

// Resets selection and current row; the caller then replaces all rows.
void ListBox::forgetRows() {
  selectedCount_ = 0;
  current_.reset();
  removedText_.reset();
  anchor_ = 0;
  changes_.reset = changes_.selection = changes_.current = true;
}

// Copies the other list's rows, unselected; reuses the allocated memory if it is large enough.
void ListBox::replaceRows(const ListBox& other) {
  texts_ = other.texts_;
  unused_ = other.unused_;
  rows_ = other.rows_;
  if (other.selectedCount_ == 0) return;
  for (Row& row : rows_) row.selected = 0;
}

void ListBox::sortRows() {
  const std::vector<std::uint32_t> order =
      caseInsensitiveOrder(rows_.size(), [this](std::size_t row) { return text(row); });
  const std::vector<Row> unsorted = std::exchange(rows_, {});
  rows_.reserve(unsorted.size());
  for (const std::uint32_t row : order) rows_.push_back(unsorted[row]);
  if (current_) current_ = static_cast<std::size_t>(std::find(order.begin(), order.end(), *current_) - order.begin());
  changes_.reset = true;
}

void ListBox::remove(std::size_t row) {
  unused_ += rows_[row].length;
  selectedCount_ -= rows_[row].selected;
  if (current_ && *current_ == row) {
    removedText_ = text(row);
    removedRow_ = row;
    current_.reset();
    changes_.current = true;
  } else if (current_ && row < *current_) {
    --*current_;
    changes_.current = true;
  } else if (removedText_ && row < removedRow_) {
    --removedRow_;
  }
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  changedRows(row, 0, 1);
  compactStore();
}

void ListBox::removeAll(std::span<const std::size_t> rows) {
  if (rows.empty()) return;
  const std::size_t tracked = current_ ? *current_ : removedText_ ? removedRow_ : 0;
  const auto firstNotAbove = std::lower_bound(rows.begin(), rows.end(), tracked);
  if (current_ && firstNotAbove != rows.end() && *firstNotAbove == tracked) {
    removedText_ = text(tracked);
    current_.reset();
  }
  (current_ ? *current_ : removedRow_) = tracked - static_cast<std::size_t>(firstNotAbove - rows.begin());

  const auto iteratorAt = [this](std::size_t row) { return rows_.begin() + static_cast<std::ptrdiff_t>(row); };
  auto kept = iteratorAt(rows.front());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    unused_ += rows_[rows[i]].length;
    selectedCount_ -= rows_[rows[i]].selected;
    kept = std::copy(iteratorAt(rows[i] + 1), i + 1 < rows.size() ? iteratorAt(rows[i + 1]) : rows_.end(), kept);
  }
  rows_.erase(kept, rows_.end());
  changes_.reset = changes_.selection = changes_.current = true;
  compactStore();
}

void ListBox::removeSelected() { removeAll(selectedRows()); }

bool ListBox::setState(std::size_t row, bool selected) {
  if (this->selected(row) == selected) return false;
  rows_[row].selected = selected ? 1 : 0;
  selectedCount_ = selected ? selectedCount_ + 1 : selectedCount_ - 1;
  changes_.selection = true;
  return true;
}

void ListBox::setSelected(std::size_t row, bool selected) {
  if (!setState(row, selected) || style_ != Style::checkBoxes) return;
  setCurrent(row);
  if (tick) tick(row);
}

void ListBox::clearSelection() {
  if (selectedCount_ == 0) return;
  for (Row& row : rows_) row.selected = 0;
  selectedCount_ = 0;
  changes_.selection = true;
}

void ListBox::setSelectedWithoutEvents(std::span<const std::size_t> rows, bool selected) {
  for (const std::size_t row : rows) {
    if (setState(row, selected)) setCurrent(row);
  }
}

void ListBox::selectText(std::string_view wanted) {
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (hasText(row, wanted)) setState(row, true);
  }
}

std::string ListBox::currentText() const {
  if (current_) return std::string(text(*current_));
  return removedText_.value_or(std::string());
}

void ListBox::setCurrent(std::optional<std::size_t> row) {
  if (row && *row >= rows_.size()) row.reset();
  removedText_.reset();
  if (row == current_) return;
  current_ = row;
  changes_.current = true;
}

void ListBox::setTop(long row) {
  top_ = row;
  changes_.top = true;
}

void ListBox::resolveRemovedCurrent() {
  if (!removedText_) return;
  removedText_.reset();
  if (current_ || rows_.empty()) return;
  current_ = std::min(removedRow_, rows_.size() - 1);
  changes_.current = true;
}

void ListBox::addRowObserver(ListObserver& observer) {
  flush();  // the new observer gets the present state, not the changes that led to it
  rowObservers_.push_back(&observer);
  addObserver(observer);
  observer.rowsReset();
  observer.selectionChanged();
  observer.currentChanged();
  observer.topChanged();
}

void ListBox::removeRowObserver(ListObserver& observer) {
  std::erase(rowObservers_, &observer);
  removeObserver(observer);
}

void ListBox::changedRows(std::size_t first, std::size_t appended, std::size_t removed) {
  if (changes_.reset) return;
  if (changes_.appended == 0 && changes_.removed == 0) {
    changes_.first = first;
    changes_.appended = appended;
    changes_.removed = removed;
  } else if (appended > 0 && changes_.removed == 0 && first == changes_.first + changes_.appended) {
    changes_.appended += appended;
  } else if (removed > 0 && changes_.appended == 0 && first == changes_.first) {
    changes_.removed += removed;
  } else {
    changes_.reset = true;
  }
}

void ListBox::flush() {
  const Changes changes = std::exchange(changes_, Changes{});
  for (ListObserver* observer : rowObservers_) {
    if (changes.reset) {
      observer->rowsReset();
    } else if (changes.appended > 0) {
      observer->rowsAppended(changes.first, changes.appended);
    } else if (changes.removed > 0) {
      observer->rowsRemoved(changes.first, changes.removed);
    }
    const bool rows = changes.reset || changes.appended > 0 || changes.removed > 0;
    if (rows || changes.selection) observer->selectionChanged();
    if (rows || changes.current) observer->currentChanged();
    if (changes.top) observer->topChanged();
  }
}

void ListBox::compactStore() {
  constexpr std::size_t minimumUnused = 1 << 16;
  if (unused_ < minimumUnused || unused_ * 2 < texts_.size()) return;
  RowStore texts;
  texts.reserve(texts_.size() - unused_);
  for (Row& row : rows_) row.offset = texts.append(texts_.text(row.offset, row.length));
  texts_ = std::move(texts);
  unused_ = 0;
}

std::size_t ListBox::memory() const { return texts_.size() + rows_.capacity() * sizeof(Row); }

}  // namespace plimo
