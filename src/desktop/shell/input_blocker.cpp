#include "desktop/shell/input_blocker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

namespace plimo {

void InputBlocker::block(QWidget* except) {
  if (except != nullptr) except_ = except;
  if (depth_++ == 0) qApp->installEventFilter(this);
}

void InputBlocker::unblock() {
  if (--depth_ > 0) return;
  except_ = nullptr;
  qApp->removeEventFilter(this);
  if (unblocked) unblocked();
}

bool InputBlocker::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::Enter:
    case QEvent::DragEnter:
    case QEvent::Drop:
      break;
    default:
      return false;
  }
  // A native window passes the event on to its widgets, where the receiver is known.
  if (qobject_cast<QWindow*>(watched) != nullptr && event->type() != QEvent::Close) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  const bool excepted = except_ != nullptr && widget != nullptr && (widget == except_ || except_->isAncestorOf(widget));
  if (excepted) return false;
  // The work may show a message box, and continues only when it is answered.
  const QWidget* box = QApplication::activeModalWidget();
  if (box != nullptr && (watched == box->windowHandle() || (widget != nullptr && widget->window() == box)))
    return false;
  // Escape goes to the excepted widget, whatever has the focus.
  if (event->type() == QEvent::KeyPress && except_ != nullptr && except_->isVisible() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    QCoreApplication::sendEvent(except_, event);
  }
  return true;
}

}  // namespace plimo
