#include "desktop/window/form_window.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolButton>
#include <algorithm>

#include "desktop/binders/bind_menus.h"
#include "desktop/binders/bind_timer.h"
#include "desktop/theme/file_uris.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/list_view.h"
#include "desktop/widgets/status_line.h"
#include "desktop/window/form_canvas.h"
#include "playlists/m3u.h"
#include "window/form1_controls.h"

namespace plimo {

namespace {

// Not by the toolkit's addresses, which do not keep the bytes of every name.
std::vector<std::string> draggedFiles(const QDropEvent& event) {
  return pathsOfUriList(event.mimeData()->data(QStringLiteral("text/uri-list")));
}

}  // namespace

FormWindow::FormWindow(Form& form, Form1Controls* controls, PlaylistPlayer& player, std::function<bool()> compact)
    : form_(form), controls_(controls), player_(player), compact_(std::move(compact)), panels_(form) {
  setObjectName(qstring(form.name()));
  setWindowTitle(shownText(form.caption()));
  setMouseTracking(true);
  setAcceptDrops(true);
  menus_ = std::make_unique<BoundMenus>(form, *this);
  menuBar_ = menus_->bar();
  canvas_ = new FormCanvas(controls);
  canvas_->setParent(this);
  canvas_->setMouseTracking(true);
  canvas_->installEventFilter(this);
  if (menuBar_ != nullptr) status_ = new StatusLine(this);
  for (Control* control : form.controls()) bind(*control);
  setTabOrders();
  if (controls != nullptr) {
    addShortcuts(*controls);
    addFindButton();
    prepareLists(*controls);
    followPlayer();
  }
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { reportFocus(now); });
}

FormWindow::~FormWindow() {
  // The focus moves once more when the widgets are destroyed, after the window's members.
  disconnect(qApp, &QApplication::focusChanged, this, nullptr);
}

void FormWindow::installAccessible() {
  QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
    auto* window = qobject_cast<FormWindow*>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Window);
  });
}

void FormWindow::bind(Control& control) {
  if (control.kind() == ControlKind::timer) {
    auto& timer = static_cast<Timer&>(control);
    timers_.push_back(std::make_unique<TimerBinder>(timer, [this] { return acceptsInput(); }));
    return;
  }
  QWidget* parent = canvas_;
  if (const Binder* frame = binderOf(control.container())) parent = frame->widget();
  std::unique_ptr<Binder> binder = makeBinderFor(control, parent);
  if (binder == nullptr) return;
  QWidget* widget = binder->widget();
  widget->installEventFilter(this);
  if (auto* list = qobject_cast<ListView*>(widget)) {
    list->viewport()->installEventFilter(this);
    byWidget_[list->viewport()] = &control;
    connect(list, &ListView::menuAsked, this, [this](const QPoint& position, bool byKey) {
      menuPosition_ = position;
      menuByKey_ = byKey;
    });
  }
  byWidget_[widget] = &control;
  byControl_[&control] = binder.get();
  binders_.push_back(std::move(binder));
}

// Null for a control without a widget of its own.
std::unique_ptr<Binder> FormWindow::makeBinderFor(Control& control, QWidget* parent) {
  switch (control.kind()) {
    case ControlKind::commandButton:
      return bindButton(control, parent);
    case ControlKind::checkBox:
      return bindCheckBox(static_cast<CheckBox&>(control), parent);
    case ControlKind::optionButton:
      return bindOptionButton(static_cast<OptionButton&>(control), parent);
    case ControlKind::picture:
      return bindPicture(static_cast<Picture&>(control), parent);
    case ControlKind::label:
      return bindLabel(control, parent);
    case ControlKind::frame:
      return bindFrame(control, parent);
    case ControlKind::shape:
      return bindShape(static_cast<Shape&>(control), parent);
    case ControlKind::slider:
      return bindSlider(static_cast<Slider&>(control), parent);
    case ControlKind::listBox:
      return bindList(static_cast<ListBox&>(control), parent);
    case ControlKind::driveList:
      return bindDriveList(static_cast<DriveList&>(control), parent);
    case ControlKind::folderList:
      return bindFolderList(static_cast<FolderList&>(control), parent);
    case ControlKind::mediaPlayer:
      return bindPlayer(control, player_, parent);
    case ControlKind::treeView:  // never shown
    case ControlKind::timer:
    case ControlKind::menu:
      break;
  }
  return nullptr;
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

void FormWindow::refresh() {
  const bool compactView = compact_();
  movingFocus_ = true;
  applyVisibility(compactView);
  applyFocus(compactView);
  movingFocus_ = false;
  // In the compact view the form keeps the focus that it has in the large view.
  const Control* wanted = form_.focus();
  if (wanted == nullptr || !wanted->showing() || (!focusable(wanted) && !compactView)) reportFocus(focusWidget());
}

void FormWindow::applyVisibility(bool compactView) {
  for (const auto& binder : binders_) {
    const bool isPlayer = binder->control().kind() == ControlKind::mediaPlayer;
    const bool inView = !compactView || isPlayer;
    const bool hidden =
        isPlayer ? !compactView && panels_.hides(binder->control()) : panels_.covered(binder->control());
    binder->applyVisible(inView && !hidden);
    if (compactView && !wasCompact_ && inView) binder->widget()->setFocus();
  }
  if (compactView != wasCompact_) {
    wasCompact_ = compactView;
    if (compactView) {
      focusBeforeCompact_ = form_.focus();
    } else {
      leftCompact_ = true;
    }
    // Not at once: a handler is running, which has not moved the controls yet.
    QMetaObject::invokeMethod(
        this, [this] { resized(); }, Qt::QueuedConnection);
  }
  canvas_->refresh(compactView);
  showPlaying();
  describeLists();
  menus_->refresh();
  if (menuBar_ != nullptr) {
    // Without visible menus it is hidden; its area stays empty.
    const QList<QAction*> menus = menuBar_->actions();
    menuBar_->setVisible(
        std::any_of(menus.begin(), menus.end(), [](const QAction* menu) { return menu->isVisible(); }));
    if (findButton_ != nullptr) findButton_->setVisible(menuBar_->isVisibleTo(this));
  }
}

// The headings are painted only: assistive tools find the counts as the lists' descriptions.
void FormWindow::describeLists() {
  for (const auto& binder : binders_) {
    if (binder->control().kind() != ControlKind::listBox) continue;
    const auto& list = static_cast<const ListBox&>(binder->control());
    if (canvas_->counts(list)) binder->widget()->setAccessibleDescription(canvas_->countText(list));
  }
}

ListView& FormWindow::listView(const ListBox& list) const { return *static_cast<ListView*>(binderOf(&list)->widget()); }

void FormWindow::prepareLists(const Form1Controls& controls) {
  const auto say = [this](const ListBox& list, const QString& hint) { listView(list).setEmptyHint(hint); };
  const QString finalHint = QStringLiteral("Songs come here from the scratch playlist: select some, and press Add.");
  say(controls.List2, QStringLiteral("The artists of your songs appear here after a scan: see the Function menu."));
  say(controls.List1, QStringLiteral("Tick artists to list their songs here."));
  say(controls.List4, finalHint);
  say(controls.List6, finalHint);
  for (const ListBox* list : {&controls.List4, &controls.List6}) listView(*list).setReorderable(true);
}

void FormWindow::showStatus() {
  if (status_ != nullptr) status_->showText(shownText(form_.status()));
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  closed();
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!filesDropped || !acceptsInput()) return;
  const std::vector<std::string> files = draggedFiles(*event);
  if (std::none_of(files.begin(), files.end(), isPlaylistFile)) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void FormWindow::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  filesDropped(draggedFiles(*event));
}

void FormWindow::popUp(Menu& menu) {
  QMenu* shown = menus_->popUpOf(menu);
  if (shown == nullptr) return;
  const QPoint position = menuPosition_.isNull() ? QCursor::pos() : menuPosition_;
  shown->popup(position);
  if (!menuByKey_) return;
  // Opened by key, the menu is used by key: its first item is selected.
  for (QAction* action : shown->actions()) {
    if (!action->isVisible() || !action->isEnabled()) continue;
    shown->setActiveAction(action);
    break;
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      // A widget that ignores the event passes it to its parent: the position says which control is under the pointer.
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
  if (!acceptsInput() || (hoverKnown_ && control == hovered_)) return;
  hovered_ = control;
  hoverKnown_ = true;
  if (control != nullptr) {
    control->userMouseMove();
  } else {
    form_.userMouseMove();
  }
}

}  // namespace plimo
