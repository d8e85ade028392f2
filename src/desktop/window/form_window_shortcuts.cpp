// The usual shortcuts of desktop programs, in addition to the single keys of the lists.
#include <QApplication>
#include <QMenuBar>
#include <QShortcut>
#include <QToolButton>

#include "desktop/binders/bind_menus.h"
#include "desktop/theme/art.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/list_view.h"
#include "desktop/window/form_window.h"
#include "window/form1_controls.h"

namespace plimo {

void FormWindow::addShortcuts(Form1Controls& controls) {
  menus_->setShortcut(controls.open, QKeySequence::Open);
  menus_->setShortcut(controls.save, QKeySequence::Save);
  menus_->setShortcut(controls.Exit, QKeySequence(Qt::CTRL | Qt::Key_Q));
  menus_->setShortcut(controls.Hotkeys, QKeySequence(Qt::Key_F1));
  menus_->showShortcut(controls.Scan, QKeySequence(Qt::Key_F5));
  menus_->showShortcut(controls.rename, QKeySequence(Qt::Key_F2));
  menus_->showShortcut(controls.rfl, QKeySequence(Qt::Key_Delete));
  menus_->showShortcut(controls.remove, QKeySequence(Qt::Key_Delete));
  menus_->showShortcut(controls.sel, QKeySequence(Qt::CTRL | Qt::Key_A));

  const auto on = [this](const QKeySequence& keys, std::function<void()> act) {
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, std::move(act));
  };
  on(QKeySequence::Find, [this] { find(); });
  on(Qt::Key_F5, [this, &controls] { scanAgain(controls); });
  // These act in a list, and in no other widget that has the focus.
  const auto inList = [this, on](ListBox& list, const QKeySequence& keys, Menu& command, bool needsSelection) {
    const Binder* binder = binderOf(&list);
    auto* shortcut = new QShortcut(keys, binder->widget(), nullptr, nullptr, Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [&list, &command, needsSelection] {
      if (!needsSelection || list.selectedCount() > 0) command.userClick();
    });
  };
  inList(controls.List1, Qt::Key_F2, controls.rename, false);
  inList(controls.List1, QKeySequence::Delete, controls.rfl, true);
  inList(controls.List4, QKeySequence::Delete, controls.remove, true);
  inList(controls.List6, QKeySequence::Delete, controls.remove, true);
  inList(controls.List2, QKeySequence::SelectAll, controls.sel, false);
}

void FormWindow::addFindButton() {
  auto* button = new QToolButton(this);
  findButton_ = button;
  button->setObjectName(QStringLiteral("find"));
  button->setIcon(artIcon(theme().dark ? QStringLiteral("find-light") : QStringLiteral("find-dark")));
  button->setToolTip(QStringLiteral("Find in the list (Ctrl+F)"));
  button->setAccessibleName(QStringLiteral("Find in the list"));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);  // the list keeps it: that is where the field opens
  connect(button, &QToolButton::clicked, this, &FormWindow::find);
}

// At the end of the menu bar. It is not the bar's own corner widget, because assistive tools do not find those.
void FormWindow::placeFindButton() {
  if (findButton_ == nullptr) return;
  const int side = menuBar_->height() - scaled(4);
  findButton_->setIconSize(QSize(side - scaled(8), side - scaled(8)));
  findButton_->setGeometry(width() - side - spacing(), (menuBar_->height() - side) / 2, side, side);
}

// In the list with the focus, otherwise in the first one.
void FormWindow::find() {
  const Control* control = controlOf(QApplication::focusWidget());
  if (control == nullptr || control->kind() != ControlKind::listBox || !control->showing()) control = firstList();
  if (!focusable(control)) return;
  if (auto* list = qobject_cast<ListView*>(binderOf(control)->widget())) list->find();
}

void FormWindow::scanAgain(Form1Controls& controls) {
  if (!controls.Scan.showing() || !controls.Scan.enabled()) return;
  const ListBox& finalList = controls.List6.showing() ? controls.List6 : controls.List4;
  const bool empties = !controls.List1.empty() || !finalList.empty();
  if (empties && !confirm("Scan the preferred drives again? This empties both playlists.")) return;
  controls.Scan.userClick();
}

}  // namespace plimo
