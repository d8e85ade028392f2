// The keyboard focus: its order, and how it follows the panels.
#include <QKeyEvent>
#include <algorithm>

#include "desktop/widgets/player_strip.h"
#include "desktop/window/form_window.h"

namespace plimo {

// The Tab key goes through a panel from top to bottom.
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
  if (!focusable(to)) return nullptr;  // in the middle of a handler: the controls are not visible yet
  panels_.clearChanged();
  return to;
}

Control* FormWindow::focusAfterCompactView() {
  Control* to = focusable(focusBeforeCompact_) ? focusBeforeCompact_ : firstList();
  if (panels_.top() != nullptr && (to == nullptr || to->container() != panels_.top())) {
    to = firstFocusableIn(*panels_.top());
  }
  if (!focusable(to)) return nullptr;  // in the middle of a handler: the controls are not visible yet
  leftCompact_ = false;
  panels_.clearChanged();
  return to;
}

void FormWindow::applyFocus(bool compactView) {
  Control* wanted = form_.focus();
  Control* moved = nullptr;
  if (!compactView) moved = leftCompact_ ? focusAfterCompactView() : focusAfterPanelChange();
  if (moved != nullptr) {
    form_.userFocus(moved);
    wanted = moved;
  }
  if (!focusable(wanted)) return;
  QWidget* target = binderOf(wanted)->focusTarget();
  if (target != nullptr && !target->isAncestorOf(focusWidget()) && focusWidget() != target) {
    target->setFocus(Qt::OtherFocusReason);
  }
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

// Called for keys that the widget with the focus has ignored.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (acceptsInput() && playByKey(player_, event->key())) return;
  const bool escape = event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && !event->isAutoRepeat();
  CommandButton* button = escape ? cancelButton() : nullptr;
  if (button == nullptr || !acceptsInput()) {
    event->ignore();
    return;
  }
  button->userClick();
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

}  // namespace plimo
