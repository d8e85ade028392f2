#include "desktop/window/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "desktop/binders/bind_menus.h"
#include "desktop/binders/bind_timer.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/units.h"
#include "desktop/widgets/list_view.h"
#include "desktop/window/form_canvas.h"

namespace plimo {

FormWindow::FormWindow(Form& form, const Form1Controls* controls, MpvPlayer& player, std::function<bool()> compact)
    : form_(form), player_(player), compact_(std::move(compact)), panels_(form) {
  setObjectName(qstring(form.name()));
  setWindowTitle(qstring(form.caption()));
  setMouseTracking(true);
  menus_ = std::make_unique<BoundMenus>(form, *this);
  menuBar_ = menus_->bar();
  canvas_ = new FormCanvas(controls);
  canvas_->setParent(this);
  canvas_->setMouseTracking(true);
  canvas_->installEventFilter(this);
  for (Control* control : form.controls()) bind(*control);
  setTabOrders();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { reportFocus(now); });
}

FormWindow::~FormWindow() = default;

void FormWindow::bind(Control& control) {
  QWidget* parent = canvas_;
  if (const Binder* frame = binderOf(control.container())) parent = frame->widget();
  std::unique_ptr<Binder> binder;
  switch (control.kind()) {
    case ControlKind::commandButton:
      binder = bindButton(control, parent);
      break;
    case ControlKind::checkBox:
      binder = bindCheckBox(static_cast<CheckBox&>(control), parent);
      break;
    case ControlKind::optionButton:
      binder = bindOptionButton(static_cast<OptionButton&>(control), parent);
      break;
    case ControlKind::picture:
      binder = bindPicture(static_cast<Picture&>(control), parent);
      break;
    case ControlKind::label:
      binder = bindLabel(control, parent);
      break;
    case ControlKind::frame:
      binder = bindFrame(control, parent);
      break;
    case ControlKind::shape:
      binder = bindShape(static_cast<Shape&>(control), parent);
      break;
    case ControlKind::slider:
      binder = bindSlider(static_cast<Slider&>(control), parent);
      break;
    case ControlKind::listBox:
      binder = bindList(static_cast<ListBox&>(control), parent);
      break;
    case ControlKind::driveList:
      binder = bindDriveList(static_cast<DriveList&>(control), parent);
      break;
    case ControlKind::folderList:
      binder = bindFolderList(static_cast<FolderList&>(control), parent);
      break;
    case ControlKind::mediaPlayer:
      binder = bindPlayer(control, player_, parent);
      break;
    case ControlKind::timer:
      timers_.push_back(std::make_unique<TimerBinder>(static_cast<Timer&>(control), [this] { return acceptsInput(); }));
      return;
    case ControlKind::treeView:  // never shown
    case ControlKind::menu:
      return;
  }
  QWidget* widget = binder->widget();
  widget->installEventFilter(this);
  if (auto* list = qobject_cast<ListView*>(widget)) {
    list->viewport()->installEventFilter(this);
    byWidget_[list->viewport()] = &control;
    connect(list, &ListView::menuAsked, this, [this](const QPoint& place, bool byKey) {
      menuPosition_ = place;
      menuByKey_ = byKey;
    });
  }
  byWidget_[widget] = &control;
  byControl_[&control] = binder.get();
  binders_.push_back(std::move(binder));
}

// The Tab key goes through a panel from its top to its bottom.
void FormWindow::setTabOrders() {
  for (const auto& binder : binders_) {
    if (binder->control().container() != nullptr) panelOrder_[binder->control().container()].push_back(binder.get());
  }
  for (auto& [panel, within] : panelOrder_) {
    std::stable_sort(within.begin(), within.end(), [](const Binder* one, const Binder* other) {
      return one->control().geometry().top < other->control().geometry().top;
    });
    for (std::size_t i = 1; i < within.size(); ++i) setTabOrder(within[i - 1]->widget(), within[i]->widget());
  }
}

Binder* FormWindow::binderOf(const Control* control) const {
  const auto found = byControl_.find(control);
  return found == byControl_.end() ? nullptr : found->second;
}

Control* FormWindow::controlOf(const QWidget* widget) const {
  for (; widget != nullptr && widget != this; widget = widget->parentWidget()) {
    if (const auto found = byWidget_.find(widget); found != byWidget_.end()) return found->second;
  }
  return nullptr;
}

void FormWindow::present() {
  refresh();
  const QSize designed(pixels(form_.width()), pixels(form_.height()));
  const QRect screenPlace = screen()->availableGeometry();
  const bool isSplash = menuBar_ == nullptr;
  if (isSplash) setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  QRect place(QPoint(), designed.boundedTo(screenPlace.size() * (isSplash ? 1.0 : 0.9)));
  place.moveCenter(screenPlace.center());
  setGeometry(place);
  presented_ = true;
  if (isSplash) {
    show();
    return;
  }
  if (form_.windowState() == WindowState::maximised) {
    showMaximized();
    // Where no window manager answers, the window fills the screen by itself.
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

void FormWindow::followState() {
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
  // A window manager that is still leaving the maximised state may overrule the size once; then it is asked again.
  constexpr int delayMs = 150;
  QTimer::singleShot(delayMs, this, [this] { applyOuterSize(); });
  QTimer::singleShot(4 * delayMs, this, [this] {
    applyOuterSize();
    wantedOuter_ = {};
  });
}

void FormWindow::applyOuterSize() {
  if (!wantedOuter_.isValid() || isMaximized() || isMinimized()) return;
  const QSize frame = frameGeometry().size() - size();
  const QSize inner = wantedOuter_ - frame;
  if (inner != size()) resize(inner.expandedTo(QSize(120, 80)));
}

void FormWindow::resizeEvent(QResizeEvent*) {
  fitFonts();
  layOut();
  reportSize();
}

void FormWindow::moveEvent(QMoveEvent*) { reportSize(); }

// In the compact view nothing is rescaled: the player keeps the size it had.
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
  canvas_->setGeometry(0, barHeight, width(), height() - barHeight);
}

void FormWindow::reportSize() {
  if (!presented_ || isMinimized() || !isVisible()) return;
  const QSize outer = frameGeometry().size();
  form_.windowResized(twips(canvas_->width()), twips(canvas_->height()), twips(outer.width()), twips(outer.height()));
}

void FormWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::WindowStateChange && presented_) {
    form_.windowStateChanged(isMinimized()   ? WindowState::minimised
                             : isMaximized() ? WindowState::maximised
                                             : WindowState::normal);
  }
  QWidget::changeEvent(event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (acceptsInput()) form_.userClose();
}

// What has the focus ignored the key.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool escape = event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && !event->isAutoRepeat();
  CommandButton* button = escape ? cancelButton() : nullptr;
  if (button == nullptr || !acceptsInput()) {
    event->ignore();
    return;
  }
  button->userClick();
}

void FormWindow::popUp(Menu& menu) {
  QMenu* shown = menus_->popUpOf(menu);
  if (shown == nullptr) return;
  const QPoint place = menuPosition_.isNull() ? QCursor::pos() : menuPosition_;
  shown->popup(place);
  if (!menuByKey_) return;
  // Asked for by key, it goes on by key.
  for (QAction* action : shown->actions()) {
    if (!action->isVisible() || !action->isEnabled()) continue;
    shown->setActiveAction(action);
    break;
  }
}

Control* FormWindow::firstList() const {
  const auto found = std::find_if(binders_.begin(), binders_.end(), [](const auto& binder) {
    return binder->control().kind() == ControlKind::listBox && binder->control().showing();
  });
  return found == binders_.end() ? nullptr : &(*found)->control();
}

std::span<Binder* const> FormWindow::bindersIn(const Control* panel) const {
  const auto within = panelOrder_.find(panel);
  return within == panelOrder_.end() ? std::span<Binder* const>() : std::span<Binder* const>(within->second);
}

Control* FormWindow::firstFocusableIn(const Control& panel) const {
  for (const Binder* binder : bindersIn(&panel)) {
    const QWidget* target = binder->focusTarget();
    const Control& control = binder->control();
    if (control.visible() && control.enabled() && target != nullptr && (target->focusPolicy() & Qt::TabFocus) != 0) {
      return &binder->control();
    }
  }
  return nullptr;
}

bool FormWindow::focusable(const Control* control) const {
  const Binder* binder = binderOf(control);
  return binder != nullptr && binder->widget()->isVisibleTo(this);
}

Control* FormWindow::focusAfterPanelChange() {
  if (!panels_.changed()) return nullptr;
  const Control* top = panels_.top();
  const auto usable = [&](const Control* control) { return focusable(control) && control->container() == top; };
  Control* to = top != nullptr ? firstFocusableIn(*top) : firstList();
  if (usable(panels_.focusBefore())) to = panels_.focusBefore();
  if (top != nullptr && usable(form_.focus())) to = form_.focus();  // the panel has it already
  if (!focusable(to)) return nullptr;  // in the midst of a handler, with nothing to go to yet
  panels_.clearChanged();
  return to;
}

CommandButton* FormWindow::cancelButton() const {
  const Control* now = controlOf(focusWidget());
  if (now == nullptr) return nullptr;
  for (const Binder* binder : bindersIn(now->container())) {
    if (binder->control().kind() != ControlKind::commandButton) continue;
    auto& button = static_cast<CommandButton&>(binder->control());
    if (button.cancels() && button.visible() && button.enabled()) return &button;
  }
  return nullptr;
}

void FormWindow::refresh() {
  movingFocus_ = true;
  const bool compactView = compact_();
  for (const auto& binder : binders_) {
    const bool inView = !compactView || binder->control().kind() == ControlKind::mediaPlayer;
    binder->applyVisible(inView && !panels_.covered(binder->control()));
    if (compactView && !wasCompact_ && inView) binder->widget()->setFocus();
  }
  wasCompact_ = compactView;
  canvas_->refresh(compactView);
  menus_->refresh();
  if (menuBar_ != nullptr) {
    // With nothing in it, it would be an empty stripe; its place stays.
    const QList<QAction*> menus = menuBar_->actions();
    menuBar_->setVisible(
        std::any_of(menus.begin(), menus.end(), [](const QAction* menu) { return menu->isVisible(); }));
  }
  Control* wanted = form_.focus();
  if (Control* focusTarget = compactView ? nullptr : focusAfterPanelChange()) {
    form_.userFocus(focusTarget);
    wanted = focusTarget;
  }
  const bool reachable = focusable(wanted);
  if (reachable) {
    QWidget* target = binderOf(wanted)->focusTarget();
    if (target != nullptr && !target->isAncestorOf(focusWidget()) && focusWidget() != target) {
      target->setFocus(Qt::OtherFocusReason);
    }
  }
  movingFocus_ = false;
  // The compact view leaves the focus to the large one.
  if (wanted == nullptr || !wanted->showing() || (!reachable && !compactView)) reportFocus(focusWidget());
}

void FormWindow::reportFocus(QWidget* now) {
  if (movingFocus_ || now == nullptr || now->window() != this) return;
  if (Control* control = controlOf(now); control != nullptr && control != form_.focus()) {
    form_.userFocus(control);
    for (const auto& binder : binders_) {
      if (binder->control().kind() == ControlKind::shape) binder->widget()->update();
    }
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      // A widget that has no use for it hands the event on to what it stands on: where the pointer is tells the truth.
      reportHover(controlOf(childAt(mapFromGlobal(static_cast<QMouseEvent*>(event)->globalPosition().toPoint()))));
      break;
    case QEvent::MouseButtonPress:
      menuPosition_ = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
      menuByKey_ = false;
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void FormWindow::reportHover(Control* control) {
  if (hoverKnown_ && control == hovered_) return;
  hovered_ = control;
  hoverKnown_ = true;
  if (!acceptsInput()) return;
  if (control != nullptr) {
    control->userMouseMove();
  } else {
    form_.userMouseMove();
  }
}

}  // namespace plimo
