// A list of texts, built for a million rows.
//
// A row is a text and a selected state; in a check-box list the selected state is the tick. The texts of all rows are
// in one buffer, which lists share when one is filled from another, plus sixteen bytes per row. Adding or removing many
// rows is one pass. Observers are notified of ranges, once for everything that a handler did.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/row_store.h"

namespace plimo {

class ListObserver : public ControlObserver {
 public:
  virtual void rowsReset() = 0;  // anything may have changed
  virtual void rowsAppended(std::size_t first, std::size_t count) = 0;
  virtual void rowsRemoved(std::size_t first, std::size_t count) = 0;
  virtual void selectionChanged() = 0;
  virtual void currentChanged() = 0;
  virtual void topChanged() = 0;
};

class ListBox : public Control {
 public:
  enum class Style { multiSelection, checkBoxes };
  enum class Order { asAdded, sorted };  // sorted: by text without regard to case, equals in the order added

  ListBox(Form& form, std::string_view name, Style style, Order order = Order::asAdded, Control* container = nullptr);

  Style style() const { return style_; }

  // --- Program API: raises nothing but tick ---
  std::size_t count() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  std::string_view text(std::size_t row) const;  // valid until the list changes
  std::vector<std::string_view> texts() const;   // of all rows; valid until the list changes
  bool selected(std::size_t row) const { return rows_[row].selected != 0; }
  std::size_t selectedCount() const { return selectedCount_; }
  std::vector<std::size_t> selectedRows() const;        // in order
  std::vector<std::string_view> selectedTexts() const;  // in order; valid until the list changes
  // The first selected row; nullopt if none is selected.
  std::optional<std::size_t> firstSelected() const;
  // The rows in the order of a sorted list.
  std::vector<std::size_t> sortedRows() const;
  // The first row with this text.
  std::optional<std::size_t> find(std::string_view text) const;
  // Every row with this text, in order.
  std::vector<std::size_t> findAll(std::string_view text) const;

  void clear();
  void add(std::string_view text);
  // The same as add for each, but in one pass in a sorted list too. The texts must not belong to this list.
  void addAll(std::span<const std::string_view> texts);
  // All of the other list's rows, unselected.
  void addAll(const ListBox& other);
  // Makes this list's rows those of `other`, unselected; no row is current.
  void assign(const ListBox& other);
  // The same with only the rows at the given positions, in that order. `other` may be this list.
  void assign(const ListBox& other, std::span<const std::size_t> positions);
  void remove(std::size_t row);
  // Removes the rows at these indices, which must be in ascending order, in one pass.
  void removeAll(std::span<const std::size_t> rows);
  void removeSelected();

  // In a check-box list a changed row becomes current and its tick is raised; setting a state again does nothing.
  void setSelected(std::size_t row, bool selected);
  void clearSelection();
  // Sets the state of many rows without raising tick, for a caller that handles all rows in one pass. The last row
  // that changed becomes current.
  void setSelectedWithoutEvents(std::span<const std::size_t> rows, bool selected);
  // Selects every row with this text.
  void selectText(std::string_view text);

  // The current row, which the keyboard acts on; nullopt if there is none.
  std::optional<std::size_t> current() const { return current_; }
  // Its text; empty if there is none. If the current row has been removed, its text stays the current text until the
  // handler ends; then the row that has taken its index becomes current, or the last row.
  std::string currentText() const;
  void setCurrent(std::optional<std::size_t> row);

  // The row requested as the topmost in view; kept as requested, even if there is no such row.
  long top() const { return top_; }
  void setTop(long row);

  // What is shown after the text of a row, for example a drive's root folder; unset for nothing. Set once, at the
  // design.
  std::function<std::string(std::string_view text)> secondaryText;

  // --- Events ---
  std::function<void(std::size_t row)> tick;
  std::function<void(char key)> keyPress;
  Event doubleClick;
  Event scroll;
  Event rightDown;  // the right mouse button, or the menu key

  // --- User-input API ---
  enum class Keys { none, control, shift };
  // A click on a row: without a modifier it selects only that row, control toggles it, shift extends the selection from
  // the anchor, which is the last row clicked without shift.
  void userClickRow(std::size_t row, Keys keys);
  // Moves the current row; the selection stays.
  void userMoveCurrent(std::size_t row);
  // Moves the current row and extends the selection to it.
  void userExtendTo(std::size_t row);
  // Selects exactly these rows (check-box list: ticks them, raising tick for each change); the last one becomes
  // current. Raises click once.
  void userSelect(std::span<const std::size_t> rows);
  void userTick(std::size_t row, bool ticked);
  // Flips the selection of one row of a multi-selection list and keeps that of the others.
  void userToggle(std::size_t row);
  void userSelectAll();
  void userDoubleClick();
  // One character: a letter, blank (32), Enter (13), Esc (27) or Backspace (8). Blank toggles the current row's tick in
  // a check-box list.
  void userKey(char key);
  void userRightDown();
  void userScroll();

  // Also notifies the observer of row changes, after an initial notification of the present state.
  void addRowObserver(ListObserver& observer);
  void removeRowObserver(ListObserver& observer);
  // Notifies the row observers of the changes since the last flush.
  void flush();
  // Bytes held for the rows, including those shared with other lists.
  std::size_t memory() const;

 private:
  struct Row {
    std::uint64_t offset;
    std::uint32_t length : 31;
    std::uint32_t selected : 1;
  };
  struct Changes {
    bool reset = false;
    std::size_t first = 0;
    std::size_t appended = 0;
    std::size_t removed = 0;
    bool selection = false;
    bool current = false;
    bool top = false;
  };

  bool hasText(std::size_t row, std::string_view wanted) const;
  Row store(std::string_view text);
  void makeRoom(std::size_t rows);
  void sortRows();
  void forgetRows();
  void replaceRows(const ListBox& other);
  void changedRows(std::size_t first, std::size_t appended, std::size_t removed);
  void compactStore();
  void resolveRemovedCurrent();
  void takeFocus();
  void selectOnly(std::size_t first, std::size_t last);
  void tickExactly(std::span<const std::size_t> rows);
  bool setState(std::size_t row, bool selected);

  Style style_;
  Order order_;
  RowStore texts_;
  std::vector<Row> rows_;
  std::size_t unused_ = 0;  // bytes in the store that no row refers to
  std::size_t selectedCount_ = 0;
  std::optional<std::size_t> current_;
  std::optional<std::string> removedText_;  // the current row's, when it was removed in this handler
  std::size_t removedRow_ = 0;
  std::size_t anchor_ = 0;
  long top_ = 0;
  Changes changes_;
  std::vector<ListObserver*> rowObservers_;
};

}  // namespace plimo
