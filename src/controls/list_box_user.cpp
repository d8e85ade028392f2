// The user-input API of ListBox.
#include <algorithm>

#include "controls/form.h"
#include "controls/list_box.h"

namespace plimo {

void ListBox::takeFocus() { form().setFocus(this); }

void ListBox::selectOnly(std::size_t first, std::size_t last) {
  clearSelection();
  for (std::size_t row = first; row <= last; ++row) setState(row, true);
}

void ListBox::userClickRow(std::size_t row, Keys keys) {
  takeFocus();
  if (row >= rows_.size()) return;
  if (style_ == Style::multiSelection) {
    if (keys == Keys::shift) {
      const std::size_t anchor = std::min(anchor_, rows_.size() - 1);
      selectOnly(std::min(anchor, row), std::max(anchor, row));
    } else {
      if (keys == Keys::control) {
        setState(row, !selected(row));
      } else {
        selectOnly(row, row);
      }
      anchor_ = row;
    }
  }
  setCurrent(row);
  raise(click);
  form().dispatcher().flush();
}

void ListBox::userMoveCurrent(std::size_t row) {
  takeFocus();
  if (row >= rows_.size()) return;
  setCurrent(row);
  anchor_ = row;
  raise(click);
  form().dispatcher().flush();
}

void ListBox::userExtendTo(std::size_t row) {
  if (style_ == Style::multiSelection) {
    userClickRow(row, Keys::shift);
  } else {
    userMoveCurrent(row);
  }
}

void ListBox::userSelect(std::span<const std::size_t> rows) {
  takeFocus();
  if (style_ == Style::checkBoxes) {
    raise([this, rows] { tickExactly(rows); });
  } else {
    clearSelection();
    for (const std::size_t row : rows) {
      if (row >= rows_.size()) continue;
      setState(row, true);
      setCurrent(row);
      anchor_ = row;
    }
  }
  raise(click);
  form().dispatcher().flush();
}

void ListBox::tickExactly(std::span<const std::size_t> rows) {
  std::vector<bool> wanted(rows_.size());
  for (const std::size_t row : rows) {
    if (row < wanted.size()) wanted[row] = true;
  }
  const std::optional<std::size_t> before = current_;
  for (std::size_t row = 0; row < wanted.size() && row < rows_.size(); ++row) setSelected(row, wanted[row]);
  setCurrent(rows.empty() ? before : rows.back());
}

void ListBox::userTick(std::size_t row, bool ticked) {
  takeFocus();
  if (row >= rows_.size()) return;
  raise([this, row, ticked] {
    if (style_ == Style::checkBoxes) setSelected(row, ticked);
    setCurrent(row);
  });
  raise(click);
  form().dispatcher().flush();
}

void ListBox::userDoubleClick() {
  takeFocus();
  raise(doubleClick);
}

void ListBox::userKey(char key) {
  takeFocus();
  if (key == ' ' && style_ == Style::checkBoxes && current_) {
    userTick(*current_, !selected(*current_));
    return;
  }
  if (keyPress) {
    raise([this, key] { keyPress(key); });
  } else if (key == ' ' && current_) {
    userToggle(*current_);
  }
}

void ListBox::userToggle(std::size_t row) {
  takeFocus();
  if (style_ != Style::multiSelection || row >= rows_.size()) return;
  setState(row, !selected(row));
  anchor_ = row;
  setCurrent(row);
  raise(click);
  form().dispatcher().flush();
}

void ListBox::userSelectAll() {
  takeFocus();
  if (style_ != Style::multiSelection) return;
  for (std::size_t row = 0; row < rows_.size(); ++row) setState(row, true);
  raise(click);
  form().dispatcher().flush();
}

void ListBox::userRightDown() {
  takeFocus();
  raise(rightDown);
}

void ListBox::userScroll() { raise(scroll); }

}  // namespace plimo
