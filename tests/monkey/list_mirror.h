// Mirrors a list by its notifications alone, as a widget does.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/list_box.h"

namespace plimo {

class ListMirror : public ListObserver {
 public:
  explicit ListMirror(ListBox& list) : list_(list) { list_.addRowObserver(*this); }
  ~ListMirror() override { list_.removeRowObserver(*this); }

  // True if the rows, the selection and the current row are those of the list.
  bool matches() const {
    return rows_ == rowsOf(list_) && selected_ == list_.selectedRows() && current_ == list_.current();
  }
  const ListBox& list() const { return list_; }

  void propertyChanged(Property) override {}
  void rowsReset() override { rows_ = rowsOf(list_); }
  void rowsAppended(std::size_t first, std::size_t count) override {
    for (std::size_t row = first; row < first + count; ++row) {
      rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row), std::string(list_.text(row)));
    }
  }
  void rowsRemoved(std::size_t first, std::size_t count) override {
    const auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(first);
    rows_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
  }
  void selectionChanged() override { selected_ = list_.selectedRows(); }
  void currentChanged() override { current_ = list_.current(); }
  void topChanged() override {}

 private:
  static std::vector<std::string> rowsOf(const ListBox& list) {
    const auto texts = list.texts();
    return {texts.begin(), texts.end()};
  }

  ListBox& list_;
  std::vector<std::string> rows_;
  std::vector<std::size_t> selected_;
  std::optional<std::size_t> current_;
};

}  // namespace plimo
