// A list on the screen: paints the rows in view straight from the model, a million of them as fast as ten, and hands
// what the user does to the model's doors.
#pragma once

#include <QAbstractScrollArea>
#include <QTimer>
#include <cstddef>
#include <functional>
#include <optional>

#include "controls/list_box.h"
#include "desktop/theme/contrast.h"

namespace plimo {

class ListView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  ListView(ListBox& model, QWidget* parent);

  ListBox& model() const { return model_; }

  // --- What the binder hears ---
  void rowsChanged();
  void rowsAppended(std::size_t first);
  void selectionChanged();
  void currentChanged();
  void topChanged();
  void setColours(const ListColours& colours);

  // --- Places ---
  int rowHeight() const { return rowHeight_; }
  // The row's place in the viewport, whether in view or not.
  QRect rowRect(std::size_t row) const;
  // The row at a point of the viewport.
  std::optional<std::size_t> rowAt(const QPoint& point) const;
  // Where a menu asked for by key appears: at the current row, else at the top; in global coordinates.
  QPoint menuPlace() const;
  QString rowText(std::size_t row) const;
  // Brings the row into view.
  void reveal(std::size_t row);

  // What is shown behind a row's text, in a quieter colour, and as its tooltip; empty for nothing.
  std::function<QString(std::size_t row)> secondaryText;

 Q_SIGNALS:
  // The user asks for a pop-up menu here (global coordinates), with the mouse or by key.
  void menuAsked(const QPoint& place, bool byKey);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void measure();
  void updateRange();
  std::size_t top() const;
  std::size_t pageRows() const;  // whole rows in view, at least one
  QRect boxRect(const QRect& row) const;
  void paintRow(QPainter& painter, std::size_t row, const QRect& place) const;
  void paintBox(QPainter& painter, const QRect& box, bool ticked, const QColor& ink) const;
  bool moveKey(const QKeyEvent& event);
  void extendToPointer(const QPoint& point);
  void pressRight(const QPoint& point);
  void announceCurrent();

  ListBox& model_;
  ListColours colours_;
  int rowHeight_ = 20;
  int wheelRest_ = 0;  // eighths of a degree not yet scrolled
  std::optional<std::size_t> shownCurrent_;
  std::optional<std::size_t> dragged_;  // the row that the pressed left button was last over
  QTimer dragTimer_;                    // scrolls while the pointer is held beyond an edge
  bool programMoves_ = false;           // the scroll bar moves because the program said so
};

}  // namespace plimo
