// The user's input to a list, each passed to one function of the model's user-input API.
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "desktop/widgets/list_view.h"
#include "desktop/widgets/search_text.h"

namespace plimo {

namespace {

ListBox::Keys keysOf(Qt::KeyboardModifiers modifiers) {
  if (modifiers.testFlag(Qt::ShiftModifier)) return ListBox::Keys::shift;
  if (modifiers.testFlag(Qt::ControlModifier)) return ListBox::Keys::control;
  return ListBox::Keys::none;
}

}  // namespace

void ListView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) {
    pressRight(event->position().toPoint());
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const auto row = rowAt(event->position().toPoint());
  if (!row) return;
  const QRect box = boxRect(rowRect(*row));
  const bool onBox = box.isValid() && event->position().x() <= box.right() + box.left();
  if (onBox) {
    model_.userTick(*row, !model_.selected(*row));
    return;
  }
  const bool carries = reorderable_ && model_.current() == row && model_.selected(*row);
  if (carries && keysOf(event->modifiers()) == ListBox::Keys::none) {
    carried_ = row;  // a click only when the button is released without having been moved
    pressedAt_ = event->position().toPoint();
    setFocus(Qt::MouseFocusReason);
    return;
  }
  dragged_ = row;
  model_.userClickRow(*row, keysOf(event->modifiers()));
}

void ListView::moveCarried(const QPoint& point) {
  if (!dropBelow_ && (point - pressedAt_).manhattanLength() < QApplication::startDragDistance()) return;
  const int bottom = std::max(0, viewport()->height() - 1);
  if (point.y() < 0) verticalScrollBar()->setValue(verticalScrollBar()->value() - 1);
  if (point.y() > bottom) verticalScrollBar()->setValue(verticalScrollBar()->value() + 1);
  dropBelow_ = rowAt(QPoint(0, std::clamp(point.y(), 0, bottom))).value_or(model_.count() - 1);
  viewport()->setCursor(Qt::DragMoveCursor);
  viewport()->update();
}

void ListView::dropCarried() {
  const std::size_t row = *std::exchange(carried_, std::nullopt);
  const auto below = std::exchange(dropBelow_, std::nullopt);
  viewport()->setCursor(Qt::ArrowCursor);
  viewport()->update();
  if (row >= model_.count()) return;
  if (!below) {
    model_.userClickRow(row, ListBox::Keys::none);
  } else if (*below != row && *below < model_.count()) {
    model_.userKey('q');
    model_.userMoveCurrent(*below);
    model_.userKey('w');
  }
}

void ListView::pressRight(const QPoint& point) {
  const auto row = rowAt(point);
  if (row && model_.style() == ListBox::Style::multiSelection && !model_.selected(*row)) {
    model_.userClickRow(*row, ListBox::Keys::none);
  } else if (row && model_.current() != row) {
    model_.userMoveCurrent(*row);
  }
  Q_EMIT menuAsked(viewport()->mapToGlobal(point), false);
  model_.userRightDown();
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton) && carried_) {
    moveCarried(event->position().toPoint());
    return;
  }
  if (!event->buttons().testFlag(Qt::LeftButton) || !dragged_) return;
  if (model_.style() != ListBox::Style::multiSelection) return;
  const QPoint point = event->position().toPoint();
  if (viewport()->rect().contains(point)) {
    dragTimer_.stop();
    extendToPointer(point);
  } else if (!dragTimer_.isActive()) {
    dragTimer_.start();
  }
}

void ListView::extendToPointer(const QPoint& point) {
  if (!dragged_ || model_.empty()) return;
  const int height = std::max(1, viewport()->height());
  auto row = rowAt(QPoint(0, std::clamp(point.y(), 0, height - 1)));
  if (!row) row = model_.count() - 1;
  if (point.y() < 0 && *row > 0) --*row;
  if (point.y() >= height && *row + 1 < model_.count()) ++*row;
  if (row == dragged_) return;
  dragged_ = row;
  model_.userExtendTo(*row);
}

void ListView::mouseReleaseEvent(QMouseEvent*) {
  if (carried_) dropCarried();
  dragged_.reset();
  dragTimer_.stop();
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const auto row = rowAt(event->position().toPoint());
  if (!row) return;
  const QRect box = boxRect(rowRect(*row));
  if (box.isValid() && event->position().x() <= box.right() + box.left()) {
    mousePressEvent(event);  // a double click on the box ticks it twice
    return;
  }
  dragged_.reset();
  carried_.reset();
  if (model_.current() != row) model_.userClickRow(*row, ListBox::Keys::none);
  model_.userDoubleClick();
}

void ListView::wheelEvent(QWheelEvent* event) {
  constexpr int notch = 120;
  wheelRest_ += event->angleDelta().y() * QApplication::wheelScrollLines();
  const int rows = wheelRest_ / notch;
  wheelRest_ -= rows * notch;
  verticalScrollBar()->setValue(verticalScrollBar()->value() - rows);
  event->accept();
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() != QContextMenuEvent::Keyboard) return;  // the button press has opened the menu already
  if (model_.current()) reveal(*model_.current());
  Q_EMIT menuAsked(menuPosition(), true);
  model_.userRightDown();
}

void ListView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) closeFindBar();
  if (moveKey(*event) || selectionKey(*event) || typeAhead(*event)) return;
  const auto modifiers = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  if (modifiers != Qt::NoModifier) {
    event->ignore();
    return;
  }
  char key = 0;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      key = '\r';
      break;
    case Qt::Key_Escape:
      key = 27;
      break;
    case Qt::Key_Backspace:
      key = '\b';
      break;
    default: {
      const QString text = event->text();
      if (text.size() == 1 && text[0].unicode() >= ' ' && text[0].unicode() < 127) key = text[0].toLatin1();
    }
  }
  // A list without a key handler leaves Escape to its panel.
  if (key == 0 || (event->key() == Qt::Key_Escape && !model_.keyPress)) {
    event->ignore();
    return;
  }
  Q_EMIT menuAsked(menuPosition(), true);  // the key may open a menu
  model_.userKey(key);
}

bool ListView::selectionKey(const QKeyEvent& event) {
  if (model_.style() != ListBox::Style::multiSelection || event.modifiers() != Qt::ControlModifier) return false;
  if (event.key() == Qt::Key_A) {
    model_.userSelectAll();
    return true;
  }
  if (event.key() != Qt::Key_Space || !model_.current()) return false;
  model_.userToggle(*model_.current());
  return true;
}

bool ListView::typeAhead(const QKeyEvent& event) {
  if (model_.style() != ListBox::Style::checkBoxes || model_.keyPress || model_.container() != nullptr) return false;
  const QString text = event.text();
  const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (command || text.isEmpty() || !text[0].isPrint() || text[0] == QLatin1Char(' ')) return false;
  constexpr qint64 pause = 1000;  // milliseconds, after which typing begins again
  if (!sinceTyped_.isValid() || sinceTyped_.elapsed() > pause) typed_.clear();
  sinceTyped_.start();
  typed_ += text;
  const SearchText wanted(typed_);
  for (std::size_t position = 0; position < rows_.count(); ++position) {
    const std::size_t row = rows_.rowAt(position);
    if (!wanted.begins(model_.text(row))) continue;
    if (model_.current() != row) model_.userMoveCurrent(row);
    reveal(row);
    break;
  }
  return true;
}

bool ListView::moveKey(const QKeyEvent& event) {
  if (rows_.count() == 0) return false;
  const auto last = static_cast<long long>(rows_.count()) - 1;
  const auto page = static_cast<long long>(pageRows());
  const long long from = model_.current() ? static_cast<long long>(rows_.positionFrom(*model_.current())) : -1;
  long long to = from;
  switch (event.key()) {
    case Qt::Key_Up:
      to = from < 0 ? static_cast<long long>(top()) : from - 1;
      break;
    case Qt::Key_Down:
      to = from < 0 ? static_cast<long long>(top()) : from + 1;
      break;
    case Qt::Key_PageUp:
      to = from - page;
      break;
    case Qt::Key_PageDown:
      to = from + page;
      break;
    case Qt::Key_Home:
      to = 0;
      break;
    case Qt::Key_End:
      to = last;
      break;
    default:
      return false;
  }
  const std::size_t row = rows_.rowAt(static_cast<std::size_t>(std::clamp<long long>(to, 0, last)));
  const std::size_t before = top();
  if (event.modifiers().testFlag(Qt::ShiftModifier)) {
    model_.userExtendTo(row);
  } else if (model_.current() != row) {
    model_.userMoveCurrent(row);
  }
  reveal(row);
  if (top() != before) model_.userScroll();
  return true;
}

}  // namespace plimo
