#include "desktop/widgets/shown_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace plimo {

void ShownRows::addSelected() {
  if (!rows_) return;
  const std::vector<std::size_t> selected = list_.selectedRows();
  std::vector<std::size_t> both;
  std::set_union(rows_->begin(), rows_->end(), selected.begin(), selected.end(), std::back_inserter(both));
  rows_ = std::move(both);
}

std::size_t ShownRows::positionFrom(std::size_t row) const {
  if (!rows_) return row;
  return static_cast<std::size_t>(std::lower_bound(rows_->begin(), rows_->end(), row) - rows_->begin());
}

bool ShownRows::shows(std::size_t row) const {
  return rows_ ? std::binary_search(rows_->begin(), rows_->end(), row) : row < list_.count();
}

}  // namespace plimo
