// Which of a list's rows are shown, and at which positions: all of them, or those of a filter.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "controls/list_box.h"

namespace plimo {

class ShownRows {
 public:
  explicit ShownRows(const ListBox& list) : list_(list) {}

  bool filtered() const { return rows_.has_value(); }
  void showAll() { rows_.reset(); }
  // Only the selected rows: in a list of ticks those that are ticked.
  void showSelected() { rows_ = list_.selectedRows(); }
  // With a filter: adds the rows that are selected now. A row whose tick is removed stays, so that it does not vanish
  // from under the pointer.
  void addSelected();

  std::size_t count() const { return rows_ ? rows_->size() : list_.count(); }
  std::size_t rowAt(std::size_t position) const { return rows_ ? (*rows_)[position] : position; }
  // The position of the row, or of the first one after it.
  std::size_t positionFrom(std::size_t row) const;
  bool shows(std::size_t row) const;

 private:
  const ListBox& list_;
  std::optional<std::vector<std::size_t>> rows_;  // ascending
};

}  // namespace plimo
