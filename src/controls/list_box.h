// A list of texts, built for a million rows.
//
// A row is a text and a selected state; in a check-box list the selected state is the tick. Rows are kept in one store
// of bytes, which lists filled from one another share, with sixteen bytes a row beside it. Whatever removes or adds
// many rows does so in one pass. Observers hear of changes in ranges, once for all that a handler did.
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
#include "controls/row_texts.h"

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

  // --- The program's door: raises nothing but tick. ---
  std::size_t count() const { return rows_.size(); }
  bool empty() const { return rows_.empty(); }
  std::string_view text(std::size_t row) const;  // valid until the list changes
  bool selected(std::size_t row) const { return rows_[row].selected != 0; }
  std::size_t selectedCount() const { return selectedCount_; }
  // The first selected row; nothing where none is.
  std::optional<std::size_t> firstSelected() const;
  // The first row with this text.
  std::optional<std::size_t> find(std::string_view text) const;
  // Every row with this text, in order.
  std::vector<std::size_t> findAll(std::string_view text) const;

  void clear();
  void add(std::string_view text);
  // The same as add for each, but in one pass in a sorted list too. The texts must not be this list's own.
  void addAll(std::span<const std::string_view> texts);
  // All of the other list's rows, unselected.
  void addAll(const ListBox& other);
  // Makes this list's rows those of `other`, unselected; no row is current.
  void assign(const ListBox& other);
  // The same with its rows at the given positions only, in that order. `other` may be this list.
  void assign(const ListBox& other, std::span<const std::size_t> positions);
  void remove(std::size_t row);
  // Removes the rows at these places, which rise, in one pass.
  void removeAll(std::span<const std::size_t> rows);
  void removeSelected();

  // In a check-box list a changed row becomes current and its tick is raised; setting a state again does nothing.
  void setSelected(std::size_t row, bool selected);
  void clearSelection();
  // Sets many rows' states without raising anything: the caller does the ticks' work for all of them at once. The last
  // row that changed becomes current.
  void setSelectedQuietly(std::span<const std::size_t> rows, bool selected);
  // Selects every row with this text.
  void selectText(std::string_view text);

  // The current row, which the keyboard acts on; nothing for none.
  std::optional<std::size_t> current() const { return current_; }
  // Its text. When the current row has been removed, its text stays the current text until the handler ends; then the
  // row in its place becomes current, or the last one.
  std::string currentText() const;
  void setCurrent(std::optional<std::size_t> row);

  // The row asked to be the topmost in view. As asked, even where no such row is.
  long top() const { return top_; }
  void setTop(long row);

  // --- Events ---
  std::function<void(std::size_t row)> tick;
  std::function<void(char key)> keyPress;
  Event doubleClick;
  Event scroll;
  Event rightDown;  // the right mouse button, or the menu key

  // --- The user's door ---
  enum class Keys { none, control, shift };
  // A click on a row with a key held: alone selects that row only, control flips it, shift extends from the last row
  // clicked alone or flipped.
  void userClickRow(std::size_t row, Keys keys);
  // Moves the current row; the selection stays.
  void userMoveCurrent(std::size_t row);
  // Moves the current row and extends the selection to it.
  void userExtendTo(std::size_t row);
  // Clicks until exactly these rows are selected (in a check-box list: ticked, each change raising its tick); the last
  // one becomes current. Raises click once.
  void userSelect(std::span<const std::size_t> rows);
  void userTick(std::size_t row, bool ticked);
  void userDoubleClick();
  // One character: a letter, blank (32), Enter (13), Esc (27) or Backspace (8). Blank flips the current row's tick in a
  // check-box list.
  void userKey(char key);
  // Without a row: over no row, or by key.
  void userRightDown();
  void userScroll();

  // The observer also hears of rows. It hears the present state first.
  void observeRows(ListObserver& observer);
  void unobserveRows(ListObserver& observer);
  // Tells the observers what has changed since the last time.
  void flush();
  // Bytes held for the rows, those shared with other lists included.
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

  bool reads(std::size_t row, std::string_view wanted) const;
  Row store(std::string_view text);
  void makeRoom(std::size_t rows);
  void sortRows();
  void forgetRows();
  void replaceRows(const ListBox& other);
  void changedRows(std::size_t first, std::size_t appended, std::size_t removed);
  void compactStore();
  void settle();
  void takeFocus();
  void selectOnly(std::size_t first, std::size_t last);
  void tickExactly(std::span<const std::size_t> rows);
  bool setState(std::size_t row, bool selected);

  Style style_;
  Order order_;
  RowTexts texts_;
  std::vector<Row> rows_;
  std::size_t unused_ = 0;  // bytes in the store that no row refers to
  std::size_t selectedCount_ = 0;
  std::optional<std::size_t> current_;
  std::optional<std::string> removedText_;  // the current row's, when it was removed in this handler
  std::size_t removedPlace_ = 0;
  std::size_t anchor_ = 0;
  long top_ = 0;
  Changes changes_;
  std::vector<ListObserver*> rowObservers_;
};

}  // namespace plimo
