#include "desktop/widgets/row_search.h"

#include <QElapsedTimer>
#include <algorithm>
#include <utility>

namespace plimo {

RowSearch::RowSearch(const ListBox& list, QObject* parent) : QObject(parent), list_(list) {
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, &RowSearch::searchPiece);
}

void RowSearch::start(SearchText wanted, std::size_t from) {
  wanted_ = std::move(wanted);
  start_ = from;
  restart();
}

void RowSearch::restart() {
  searched_ = 0;
  fromStart_.clear();
  beforeStart_.clear();
  start_ = std::min(start_, list_.count());
  if (wanted_.empty()) {
    timer_.stop();
    return;
  }
  timer_.start();
  searchPiece();
}

void RowSearch::searchPiece() {
  constexpr qint64 longestPiece = 6;  // milliseconds: less than half a frame
  constexpr std::size_t rowsBetweenLooks = 256;
  QElapsedTimer elapsed;
  elapsed.start();
  const std::size_t count = list_.count();
  const std::size_t firstPart = count - std::min(start_, count);  // rows may be gone that are not yet reported
  while (searched_ < count && elapsed.elapsed() < longestPiece) {
    const std::size_t end = std::min(count, searched_ + rowsBetweenLooks);
    for (; searched_ < end; ++searched_) {
      const bool secondPart = searched_ >= firstPart;
      const std::size_t row = secondPart ? searched_ - firstPart : start_ + searched_;
      if (wanted_.isIn(list_.text(row))) (secondPart ? beforeStart_ : fromStart_).push_back(row);
    }
  }
  if (searched_ >= count) timer_.stop();
  Q_EMIT advanced();
}

std::optional<std::size_t> RowSearch::first() const {
  if (!fromStart_.empty()) return fromStart_.front();
  if (!beforeStart_.empty()) return beforeStart_.front();
  return std::nullopt;
}

std::optional<std::size_t> RowSearch::after(std::size_t row) const {
  const auto next = [row](const std::vector<std::size_t>& rows) {
    return std::upper_bound(rows.begin(), rows.end(), row);
  };
  if (row < start_) {
    if (const auto found = next(beforeStart_); found != beforeStart_.end()) return *found;
    if (finished() && !fromStart_.empty()) return fromStart_.front();
  } else {
    if (const auto found = next(fromStart_); found != fromStart_.end()) return *found;
    if (!beforeStart_.empty()) return beforeStart_.front();
  }
  return finished() ? first() : std::nullopt;
}

std::optional<std::size_t> RowSearch::before(std::size_t row) const {
  if (!finished() || found() == 0) return std::nullopt;
  for (const auto* rows : {&fromStart_, &beforeStart_}) {
    const auto next = std::lower_bound(rows->begin(), rows->end(), row);
    if (next != rows->begin()) return *std::prev(next);
  }
  return fromStart_.empty() ? beforeStart_.back() : fromStart_.back();
}

std::size_t RowSearch::placeOf(std::size_t row) const {
  const auto notAfter = [row](const std::vector<std::size_t>& rows) {
    return static_cast<std::size_t>(std::upper_bound(rows.begin(), rows.end(), row) - rows.begin());
  };
  return notAfter(beforeStart_) + notAfter(fromStart_);
}

}  // namespace plimo
