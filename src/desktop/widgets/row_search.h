// The search for a text in all rows of a list, in pieces between the events of the window.
#pragma once

#include <QObject>
#include <QTimer>
#include <cstddef>
#include <optional>
#include <vector>

#include "controls/list_box.h"
#include "desktop/widgets/search_text.h"

namespace plimo {

class RowSearch : public QObject {
  Q_OBJECT

 public:
  RowSearch(const ListBox& list, QObject* parent);

  // Starts a search in this order: from the row to the end, then from the beginning. The first piece is searched at
  // once. An empty text ends the search.
  void start(SearchText wanted, std::size_t from);
  // Starts again, after the rows have changed.
  void restart();

  const SearchText& wanted() const { return wanted_; }
  bool finished() const { return !timer_.isActive(); }
  // Of the rows searched so far:
  std::size_t found() const { return fromStart_.size() + beforeStart_.size(); }
  // The first match in the order of the search.
  std::optional<std::size_t> first() const;
  // The next match after a row and the one before it, each with a step across the list's end; nullopt if there is none
  // or if it is not known yet.
  std::optional<std::size_t> after(std::size_t row) const;
  std::optional<std::size_t> before(std::size_t row) const;
  // The place of a matching row among all matches, from 1. Only after the search has finished.
  std::size_t placeOf(std::size_t row) const;

 Q_SIGNALS:
  // A piece has been searched.
  void advanced();

 private:
  void searchPiece();

  const ListBox& list_;
  SearchText wanted_;
  std::size_t start_ = 0;
  std::size_t searched_ = 0;              // rows, in the order of the search
  std::vector<std::size_t> fromStart_;    // matching rows, ascending
  std::vector<std::size_t> beforeStart_;  // the same of the second part
  QTimer timer_;
};

}  // namespace plimo
