// A list: it paints the visible rows directly from the model, so that a million rows are as fast as ten, and passes the
// user's input to the model's user-input API. The user can search it: see FindBar.
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QTimer>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "controls/list_box.h"
#include "desktop/theme/list_colours.h"
#include "desktop/widgets/shown_rows.h"

namespace plimo {

class FindBar;

class ListView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  ListView(ListBox& model, QWidget* parent);

  ListBox& model() const { return model_; }

  // --- Notifications from the binder ---
  void rowsChanged();
  void rowsAppended(std::size_t first);
  void selectionChanged();
  void currentChanged();
  void topChanged();
  void setColours(const ListColours& colours);

  // --- Geometry ---
  int rowHeight() const { return rowHeight_; }
  // The row's rectangle in the viewport's coordinates, visible or not; empty if a filter hides the row.
  QRect rowRect(std::size_t row) const;
  // The row at a point of the viewport; nullopt if there is none.
  std::optional<std::size_t> rowAt(const QPoint& point) const;
  // Where a menu opened by key appears: at the current row, else at the top; in global coordinates.
  QPoint menuPosition() const;
  QString rowText(std::size_t row) const;
  // The same for assistive tools: never empty.
  QString rowName(std::size_t row) const;
  // Scrolls the row into view.
  void reveal(std::size_t row);

  // Opens the field for searching.
  void find();
  // Whether only some rows are shown, because the user wants to see only what is ticked.
  bool filtered() const { return rows_.filtered(); }
  // That field while it is open; otherwise null.
  QWidget* openFindBar() const;
  // Lets the mouse drag the current row, if it is selected, to below another one, as the keys "q" and "w" do.
  void setReorderable(bool on) { reorderable_ = on; }
  // The song that plays, as a row's text; empty for none. Its row has a sign and bold letters: the row `at`, or each
  // row with this text if it is not known which one plays.
  void setPlaying(const std::string& song, std::optional<std::size_t> at);
  bool isPlaying(std::size_t row) const;
  // What an empty list says; empty for nothing.
  void setEmptyHint(const QString& hint) { emptyHint_ = hint; }

  // What is shown after a row's text, in the secondary colour, and as its tooltip; unset for nothing.
  std::function<QString(std::size_t row)> secondaryText;

 Q_SIGNALS:
  // The user asks for a pop-up menu at a position in global coordinates, with the mouse or by key.
  void menuAsked(const QPoint& position, bool byKey);

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
  std::size_t top() const;       // the position of the topmost row in view
  std::size_t pageRows() const;  // whole visible rows, at least 1
  void filterTicked(bool on);
  void layOutFindBar();
  void closeFindBar();
  void paintEmptyHint(QPainter& painter) const;
  QRect boxRect(const QRect& row) const;
  void paintRow(QPainter& painter, std::size_t row, const QRect& rect) const;
  void paintBox(QPainter& painter, const QRect& box, bool ticked, const QColor& ink) const;
  QRect paintPlaying(QPainter& painter, const QRect& area, const QColor& colour) const;
  void paintMatch(QPainter& painter, std::size_t row, const QRect& area, const QString& text) const;
  QRect textRect(const QRect& row) const;
  QString paintedText(std::size_t row) const;  // without the leading blank that a title has in its file's name
  QString tipOf(std::size_t row) const;
  bool moveKey(const QKeyEvent& event);
  // A letter in a list of ticks goes to the first row that begins with what has been typed.
  bool typeAhead(const QKeyEvent& event);
  // Ctrl+Space and Ctrl+A.
  bool selectionKey(const QKeyEvent& event);
  void extendToPointer(const QPoint& point);
  void pressRight(const QPoint& point);
  void moveCarried(const QPoint& point);
  void dropCarried();
  void paintDropLine(QPainter& painter) const;
  void announceCurrent();
  // The selected states of the rows in view and of the current one, which assistive tools are notified of.
  std::map<std::size_t, bool> statesInView() const;
  void rememberStates();
  void announceSelection(std::size_t row, bool selected);

  ListBox& model_;
  ShownRows rows_;
  FindBar* findBar_ = nullptr;  // made when it is first opened
  QString emptyHint_;
  std::string playing_;
  std::optional<std::size_t> playingAt_;
  QString typed_;  // by typeAhead, and when
  QElapsedTimer sinceTyped_;
  ListColours colours_;
  int rowHeight_ = 20;
  std::map<std::size_t, bool> announced_;  // as last remembered
  int wheelRest_ = 0;                      // eighths of a degree not yet scrolled
  std::optional<std::size_t> shownCurrent_;
  std::optional<std::size_t> dragged_;  // the row last under the pointer while the left button is held
  bool reorderable_ = false;
  std::optional<std::size_t> carried_;  // the row pressed that the mouse may carry
  QPoint pressedAt_;
  std::optional<std::size_t> dropBelow_;  // the row below which it would be dropped, once it is being carried
  QTimer dragTimer_;                      // scrolls while the pointer is beyond an edge
  bool programScrolls_ = false;           // the scroll bar is moved by the program, not by the user
};

}  // namespace plimo
