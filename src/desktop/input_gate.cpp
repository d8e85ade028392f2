#include "desktop/input_gate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

namespace plimo {

void InputGate::close(QWidget* let) {
  if (let != nullptr) let_ = let;
  if (depth_++ == 0) qApp->installEventFilter(this);
}

void InputGate::reopen() {
  if (--depth_ > 0) return;
  let_ = nullptr;
  qApp->removeEventFilter(this);
  if (opened) opened();
}

bool InputGate::eventFilter(QObject* watched, QEvent* event) {
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
    case QEvent::Close:
    case QEvent::Enter:
    case QEvent::DragEnter:
    case QEvent::Drop:
      break;
    default:
      return false;
  }
  // A window hands the event on to its widgets; only there is it known whose it is.
  if (qobject_cast<QWindow*>(watched) != nullptr && event->type() != QEvent::Close) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  const bool lets = let_ != nullptr && widget != nullptr && (widget == let_ || let_->isAncestorOf(widget));
  if (lets && event->type() != QEvent::Close) return false;
  // The work that the gate is closed for may have something to say or to ask: it goes on only when that is answered.
  const QWidget* box = QApplication::activeModalWidget();
  if (box != nullptr && (watched == box->windowHandle() || (widget != nullptr && widget->window() == box)))
    return false;
  // Whatever has the keyboard, Escape is meant for what is shown.
  if (event->type() == QEvent::KeyPress && let_ != nullptr && let_->isVisible() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    QCoreApplication::sendEvent(let_, event);
  }
  if (event->type() == QEvent::Close) event->ignore();
  return true;
}

}  // namespace plimo
