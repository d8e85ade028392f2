// The field above a list's rows in which the user types what to find.
#pragma once

#include <QWidget>
#include <cstddef>
#include <optional>

#include "desktop/widgets/row_search.h"

class QLabel;
class QLineEdit;
class QToolButton;

namespace plimo {

class ListView;

// Matches are marked in the list while the user types, and the first one is scrolled into view. Enter and Shift+Enter
// make the next and the previous match the current row; Escape closes the field.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  // Belongs to the list.
  explicit FindBar(ListView& view);

  // Shows the field and gives it the focus; its text is kept, and selected.
  void open();
  void close();
  void rowsChanged();
  const SearchText& wanted() const { return search_.wanted(); }
  // The match that the field has found last.
  std::optional<std::size_t> match() const { return match_; }

 Q_SIGNALS:
  void closed();
  // What is marked in the list has changed.
  void marksChanged();
  void tickedOnlyToggled(bool on);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Step { none, first, next, previous };

  QToolButton* addButton(const QString& name, const QString& tip);
  void search();
  void step(Step direction);
  void carryOut();
  void showCount();
  void fit();

  ListView& view_;
  RowSearch search_;
  Step pending_ = Step::none;  // waits for the search to get there
  std::size_t origin_ = 0;     // where the search begins: the current row when the field was opened
  std::optional<std::size_t> match_;
  QLineEdit* field_ = nullptr;
  QLabel* count_ = nullptr;
  QToolButton* tickedOnly_ = nullptr;  // only in a list of ticks
};

}  // namespace plimo
