// The size, state and fonts of the window.
#include <QEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "desktop/binders/bind_menus.h"
#include "desktop/binders/bind_timer.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/units.h"
#include "desktop/widgets/status_line.h"
#include "desktop/window/form_canvas.h"
#include "desktop/window/form_window.h"

namespace plimo {

void FormWindow::present() {
  refresh();
  const QSize designed(pixels(form_.width()), pixels(form_.height()));
  const QRect available = screen()->availableGeometry();
  const bool isSplash = menuBar_ == nullptr;
  if (isSplash) setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  QRect geometry(QPoint(), designed.boundedTo(available.size() * (isSplash ? 1.0 : 0.9)));
  geometry.moveCenter(available.center());
  setGeometry(geometry);
  presented_ = true;
  applyMinimumSize();
  if (isSplash) {
    show();
    return;
  }
  if (form_.windowState() == WindowState::maximised) {
    showMaximized();
    // Without a window manager the window is not maximised: it is resized to the screen.
    constexpr int delayMs = 400;
    QTimer::singleShot(delayMs, this, [this] {
      const QRect whole = screen()->availableGeometry();
      if (isMaximized() && (width() < whole.width() * 9 / 10 || height() < whole.height() * 4 / 5)) setGeometry(whole);
    });
  } else {
    show();
  }
  if (const Binder* list = binderOf(firstList())) list->widget()->setFocus();
}

void FormWindow::applyState() {
  if (!presented_) return;
  wantedOuter_ = {};
  switch (form_.windowState()) {
    case WindowState::normal:
      showNormal();
      break;
    case WindowState::minimised:
      showMinimized();
      break;
    case WindowState::maximised:
      showMaximized();
      break;
  }
}

void FormWindow::resizeOuter(double width, double height) {
  wantedOuter_ = QSize(pixels(width), pixels(height));
  if (!presented_) return;
  applyOuterSize();
  // A window manager that is still leaving the maximised state may override the size once: it is set again.
  constexpr int delayMs = 150;
  QTimer::singleShot(delayMs, this, [this] { applyOuterSize(); });
  QTimer::singleShot(4 * delayMs, this, [this] {
    applyOuterSize();
    wantedOuter_ = {};
  });
}

// Below it the captions could not be read. While the window is still smaller, because it is leaving the compact view,
// the toolkit would resize it, and the window manager would not maximise it.
void FormWindow::applyMinimumSize() {
  if (menuBar_ == nullptr) return;
  constexpr QSize compact(120, 80);
  const QSize large = QSize(640, 480).boundedTo(screen()->availableGeometry().size() * 0.9);
  const QSize wanted = compact_() ? compact : large;
  if (wanted.boundedTo(size()) == wanted) setMinimumSize(wanted);
}

void FormWindow::applyOuterSize() {
  applyMinimumSize();
  if (!wantedOuter_.isValid() || isMaximized() || isMinimized()) return;
  const QSize frame = frameGeometry().size() - size();
  const QSize inner = wantedOuter_ - frame;
  if (inner != size()) resize(inner.expandedTo(QSize(120, 80)));
}

void FormWindow::resizeEvent(QResizeEvent*) { resized(); }

void FormWindow::resized() {
  if (presented_) applyMinimumSize();
  fitFonts();
  layOut();
  reportSize();
}

void FormWindow::moveEvent(QMoveEvent*) { reportSize(); }

// In the compact view nothing is rescaled: the player keeps its size.
void FormWindow::fitFonts() {
  if (menuBar_ == nullptr || compact_()) return;
  const double before = windowScale();
  setWindowSize(size());
  if (windowScale() == before && font() == windowFont()) return;
  setFont(windowFont());
}

void FormWindow::layOut() {
  const int barHeight = menuBar_ == nullptr ? 0 : menus_->barHeight();
  if (menuBar_ != nullptr) menuBar_->setGeometry(0, 0, width(), barHeight);
  placeFindButton();
  const int footHeight = statusHeight();
  canvas_->setGeometry(0, barHeight, width(), height() - barHeight - footHeight);
  placePlayer();
  if (status_ == nullptr) return;
  status_->setVisible(footHeight > 0);
  status_->setGeometry(0, height() - footHeight, width(), footHeight);
}

// In the compact view the player fills the window. Its control is a little smaller, and keeps its size.
void FormWindow::placePlayer() {
  for (const auto& binder : binders_) {
    const Control& control = binder->control();
    if (control.kind() != ControlKind::mediaPlayer) continue;
    binder->widget()->setGeometry(compact_() ? canvas_->rect() : pixelRect(control.geometry()));
  }
}

// The line keeps its height while it is empty, so that the controls above it do not move.
int FormWindow::statusHeight() const {
  return status_ == nullptr || compact_() ? 0 : status_->fontMetrics().height() + scaled(6);
}

void FormWindow::reportSize() {
  if (!presented_ || isMinimized() || !isVisible()) return;
  const QSize outer = frameGeometry().size();
  form_.windowResized(twips(canvas_->width()), twips(canvas_->height()), twips(outer.width()), twips(outer.height()));
}

void FormWindow::changeEvent(QEvent* event) {
  // A box that was open has been closed: the pointer may be anywhere.
  if (event->type() == QEvent::ActivationChange) hoverKnown_ = false;
  if (event->type() == QEvent::WindowStateChange && presented_) {
    form_.windowStateChanged(isMinimized()   ? WindowState::minimised
                             : isMaximized() ? WindowState::maximised
                                             : WindowState::normal);
  }
  QWidget::changeEvent(event);
}

}  // namespace plimo
