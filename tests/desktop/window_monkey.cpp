#include "desktop/window_monkey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "desktop/shell/responsive_files.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "desktop/widgets/list_view.h"
#include "desktop/window/form_window.h"

namespace plimo {

namespace {

constexpr std::size_t keptActions = 60;
constexpr std::size_t actionsBetweenEscapes = 100;
constexpr int boxPollMs = 3;

QStringList warnings;  // of the toolkit and the program

void collectWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
  // The platform without a screen lacks some things, and drags may leave the window.
  const bool expected = text.contains(QLatin1String("This plugin does not support")) ||
                        text.contains(QLatin1String("occurs outside target window"));
  if (type == QtDebugMsg || type == QtInfoMsg || expected) return;
  warnings << text;
}

FormWindow* mainWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = qobject_cast<FormWindow*>(widget);
    if (window != nullptr && window->isVisible() && window->objectName() == QLatin1String("Form1")) return window;
  }
  return nullptr;
}

QPoint inWindow(const QWidget& widget, const QPoint& point) { return widget.mapTo(widget.window(), point); }

}  // namespace

WindowMonkey::WindowMonkey(WindowMonkeyFolder& folder, std::function<std::size_t(std::size_t limit)> choose)
    : folder_(folder),
      choose_(std::move(choose)),
      disk_(std::make_shared<FencedFiles>(folder)),
      files_(std::make_unique<ResponsiveFiles>(disk_)),
      launcher_(*files_) {
  boxTimer_.setInterval(boxPollMs);
  // Outside the timer's own event, because an answer may open another box, and the timer does not fire in itself.
  QObject::connect(&boxTimer_, &QTimer::timeout, [this] {
    if (QApplication::activeModalWidget() == nullptr || std::exchange(answering_, true)) return;
    QTimer::singleShot(0, &boxTimer_, [this] {
      answering_ = false;
      answerBox();
    });
  });
}

WindowMonkey::~WindowMonkey() = default;

std::string WindowMonkey::run(std::size_t actions, std::size_t& performed) {
  static const bool themed = (installTheme(*qApp), true);  // once: it scales the application's font
  static_cast<void>(themed);
  QApplication::setQuitOnLastWindowClosed(false);
  warnings.clear();
  const QtMessageHandler before = qInstallMessageHandler(collectWarning);
  boxTimer_.start();
  performed = 0;
  while (performed < actions && broken_.empty()) session(actions, performed);
  boxTimer_.stop();
  qInstallMessageHandler(before);
  return broken_;
}

void WindowMonkey::session(std::size_t actions, std::size_t& performed) {
  record(QStringLiteral("start"));
  ++performed;
  named_ = {};
  Desktop desktop(*files_, launcher_);
  files_->waiting = [&desktop](std::chrono::milliseconds since) { return desktop.waitForDisk(since); };
  files_->waited = [&desktop] { desktop.diskAnswered(); };
  files_->background = [&desktop](const std::function<void()>& work) { desktop.runInBackground(work); };
  QTimer::singleShot(0, qApp, [&] {
    // The splash window of a first start closes by itself.
    for (int wait = 0; wait < 2000 && !runsOn(); ++wait) QTest::qWait(boxPollMs);
    if (!runsOn()) broken("the program does not start");
    check();
    while (broken_.empty() && runsOn() && performed < actions) {
      named_ = {};
      ++performed;
      if (performed % actionsBetweenEscapes == 0) {
        escape();
      } else {
        act();
      }
      letItSettle();
      check();
    }
    QCoreApplication::exit();
  });
  desktop.run();
  mirrors_.clear();
  form_ = nullptr;
  files_->waiting = nullptr;
  files_->waited = nullptr;
  files_->background = nullptr;
}

bool WindowMonkey::runsOn() {
  FormWindow* const window = mainWindow();
  if (window == nullptr) return false;
  if (form_ == nullptr) {
    form_ = static_cast<Form1*>(&window->form());
    for (ListBox* list : {&form_->List1, &form_->List2, &form_->List3, &form_->List4, &form_->List5, &form_->List6}) {
      mirrors_.push_back(std::make_unique<ListMirror>(*list));
    }
  }
  return true;
}

void WindowMonkey::letItSettle() {
  for (int turn = 0; turn < 3; ++turn) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }
}

// --- Actions ---

void WindowMonkey::act() {
  if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
    useMenu(*menu);
    return;
  }
  FormWindow& window = *mainWindow();
  const std::size_t what = choose_(100);
  if (what < 1) {
    record(QStringLiteral("close"));
    window.close();
  } else if (what < 5) {
    const QSize size(200 + static_cast<int>(choose_(1400)), 100 + static_cast<int>(choose_(1000)));
    record(QStringLiteral("resize to %1x%2").arg(size.width()).arg(size.height()));
    window.resize(size);
  } else if (what < 30) {
    pressKey(window);
  } else {
    usePointer(window);
  }
}

void WindowMonkey::useMenu(QMenu& menu) {
  QList<QAction*> items;
  for (QAction* action : menu.actions()) {
    if (action->isVisible() && action->isEnabled() && !action->isSeparator()) items << action;
  }
  const std::size_t what = choose_(6);
  if (what == 0 || items.isEmpty()) {
    record(QStringLiteral("menu Escape"));
    QTest::keyClick(menu.windowHandle(), Qt::Key_Escape);
  } else if (what == 1) {
    record(QStringLiteral("menu by keys"));
    for (std::size_t step = choose_(6); step > 0; --step) QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
    QTest::keyClick(menu.windowHandle(), Qt::Key_Return);
  } else {
    QAction& item = *items[static_cast<qsizetype>(choose_(static_cast<std::size_t>(items.size())))];
    record(QStringLiteral("menu ") + item.objectName());
    QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, menu.actionGeometry(&item).center());
  }
}

void WindowMonkey::pressKey(QWidget& window) {
  static constexpr std::array keys{Qt::Key_Up,     Qt::Key_Down,      Qt::Key_PageUp,  Qt::Key_PageDown, Qt::Key_Home,
                                   Qt::Key_End,    Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Space,    Qt::Key_Return,
                                   Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Left,    Qt::Key_Right,    Qt::Key_Menu,
                                   Qt::Key_Z,      Qt::Key_X,         Qt::Key_C,       Qt::Key_V,        Qt::Key_Q,
                                   Qt::Key_W,      Qt::Key_A,         Qt::Key_F10,     Qt::Key_Delete};
  const Qt::Key key = keys[choose_(keys.size())];
  static constexpr std::array<Qt::KeyboardModifiers::Int, 6> modifiers{
      0, 0, 0, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
  const auto modifier = Qt::KeyboardModifiers::fromInt(modifiers[choose_(modifiers.size())]);
  record(QStringLiteral("key %1 with %2").arg(QKeySequence(key).toString()).arg(modifier.toInt(), 0, 16));
  QTest::keyClick(window.windowHandle(), key, modifier);
}

void WindowMonkey::usePointer(QWidget& window) {
  QList<QWidget*> targets;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty() && !widget->isWindow()) {
      targets << widget;
    }
  }
  if (targets.isEmpty()) return;
  QWidget& widget = *targets[static_cast<qsizetype>(choose_(static_cast<std::size_t>(targets.size())))];
  const QRect area = widget.visibleRegion().boundingRect();
  const QPoint point =
      inWindow(widget, area.topLeft() + QPoint(static_cast<int>(choose_(static_cast<std::size_t>(area.width()))),
                                               static_cast<int>(choose_(static_cast<std::size_t>(area.height())))));
  const QString name = widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) +
                                                           QStringLiteral(" of ") + widget.parentWidget()->objectName()
                                                     : widget.objectName();
  const QString where = QStringLiteral(" %1 at %2,%3").arg(name).arg(point.x()).arg(point.y());
  QWindow* const handle = window.windowHandle();
  static constexpr std::array<Qt::KeyboardModifiers::Int, 5> modifiers{0, 0, 0, Qt::ShiftModifier, Qt::ControlModifier};
  switch (choose_(12)) {
    case 0:
      record(QStringLiteral("double click") + where);
      QTest::mouseDClick(handle, Qt::LeftButton, {}, point);
      break;
    case 1:
    case 2:
      record(QStringLiteral("right click") + where);
      QTest::mouseClick(handle, Qt::RightButton, {}, point);
      break;
    case 3: {
      record(QStringLiteral("wheel") + where);
      const QPoint turn(0, choose_(2) == 0 ? 120 : -240);
      const QPoint local = widget.mapFrom(&window, point);
      QWheelEvent event(local, window.mapToGlobal(point), {}, turn, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                        false);
      QCoreApplication::sendEvent(&widget, &event);
      break;
    }
    case 4:
      record(QStringLiteral("drag from") + where);
      dragOn(window, point);
      break;
    case 5:
      record(QStringLiteral("move to") + where);
      QTest::mouseMove(handle, point);
      break;
    default:
      record(QStringLiteral("click") + where);
      QTest::mouseClick(handle, Qt::LeftButton, Qt::KeyboardModifiers::fromInt(modifiers[choose_(modifiers.size())]),
                        point);
      break;
  }
}

void WindowMonkey::dragOn(QWidget& window, const QPoint& from) {
  QWindow* const handle = window.windowHandle();
  QTest::mousePress(handle, Qt::LeftButton, {}, from);
  QPoint to = from;
  for (int step = 0; step < 4; ++step) {
    to += QPoint(static_cast<int>(choose_(200)) - 100, static_cast<int>(choose_(200)) - 100);
    QTest::mouseMove(handle, to);
  }
  QTest::mouseRelease(handle, Qt::LeftButton, {}, to);
}

// --- Boxes ---

void WindowMonkey::answerBox() {
  QWidget* const modal = QApplication::activeModalWidget();
  auto* const box = qobject_cast<QDialog*>(modal);
  if (box == nullptr || !box->isVisible()) return;
  if (auto* message = qobject_cast<QMessageBox*>(box)) {
    const QList<QAbstractButton*> buttons = message->buttons();
    answerMessage(*box, {buttons.begin(), buttons.end()});
    return;
  }
  auto* const field = box->findChild<QLineEdit*>();
  if (field == nullptr || calm_ || choose_(4) == 0) {
    record(QStringLiteral("  box: cancelled"));
    box->reject();
    return;
  }
  if (qobject_cast<QInputDialog*>(box) != nullptr) {
    static constexpr std::array names{"Alder - Ash", "Beech - New", "thesis.odt", "a/b", "Cypress", "New"};
    named_.renames = true;
    field->setText(QString::fromLatin1(names[choose_(names.size())]));
  } else {
    const std::array names{folder_.home() + "/mine",     folder_.home() + "/default.m3u",
                           folder_.music() + "/mix.m3u", folder_.stick() + "/thesis.odt",
                           folder_.root() + "/none/x",   folder_.home() + "/list.m3u"};
    const std::string name = names[choose_(names.size())];
    const auto* dialog = qobject_cast<QFileDialog*>(box);
    // What follows asks before it overwrites; a No there is not undone here, which only makes this check weaker.
    if (dialog != nullptr && dialog->acceptMode() == QFileDialog::AcceptSave) {
      named_.saves.insert({name, name + ".m3u"});
    }
    field->setText(qstring(name));
  }
  record(QStringLiteral("  box: ") + field->text());
  QTest::keyClick(box->windowHandle(),
                  Qt::Key_Return);  // a name that is not accepted leaves it open, until the next answer
}

void WindowMonkey::answerMessage(QDialog& box, const std::vector<QAbstractButton*>& buttons) {
  const auto& message = static_cast<QMessageBox&>(box);
  QAbstractButton* button = buttons.at(choose_(buttons.size()));
  if (calm_ && message.button(QMessageBox::No) != nullptr) button = message.button(QMessageBox::No);
  record(QStringLiteral("  box: \"%1\" %2").arg(message.text().left(50), button->text()));
  const bool yes = message.standardButton(button) == QMessageBox::Yes;
  if (yes && message.text().startsWith(QLatin1String("You are gonna have to say goodbye"))) named_.deletes = true;
  if (choose_(8) == 0 && !calm_) {
    QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
  } else {
    button->click();
  }
}

// --- What must hold ---

void WindowMonkey::check() {
  if (!broken_.empty()) return;
  if (!warnings.isEmpty()) broken("a warning: " + bytesOf(warnings.join(QLatin1Char('\n'))));
  const bool alive = runsOn();
  if (const std::string what = folder_.violation(named_, alive && form_->accept.showing()); !what.empty()) broken(what);
  if (alive) checkLists();
}

void WindowMonkey::checkLists() {
  for (const auto& mirror : mirrors_) {
    if (!mirror->matches()) broken("the notifications of " + mirror->list().name() + " are not its rows");
  }
  if (form_->List4.showing() && form_->List6.showing()) broken("both final playlists show");
  const FormWindow& window = *mainWindow();
  for (const ListView* view : window.findChildren<ListView*>()) checkList(*view);
}

void WindowMonkey::checkList(const ListView& view) {
  const ListBox& list = view.model();
  if (!view.isVisible()) return;
  if (!list.showing()) broken(list.name() + " is visible and should not be");
  if (view.filtered()) return;  // shows some of the rows only
  const QScrollBar& bar = *view.verticalScrollBar();
  const int rows = static_cast<int>(list.count());
  if (bar.maximum() != std::max(0, rows - bar.pageStep())) broken(list.name() + " scrolls over other rows than it has");
  // The rows in view are those of the core, in its order.
  const auto top = static_cast<std::size_t>(bar.value());
  for (std::size_t row = top; row < list.count(); ++row) {
    const QRect area = view.rowRect(row);
    if (!view.viewport()->rect().contains(area.center())) break;
    if (view.rowAt(area.center()) != row) broken(list.name() + " shows another row at the place of a row");
  }
}

// --- Back to the three lists ---

void WindowMonkey::clickIfPossible(const char* name) {
  if (!broken_.empty() || !runsOn()) return;
  QWidget* const widget = mainWindow()->findChild<QWidget*>(QLatin1String(name));
  if (widget == nullptr || !widget->isVisible() || !widget->isEnabled()) return;
  QTest::mouseClick(
      mainWindow()->windowHandle(), Qt::LeftButton, {},
      inWindow(*widget, qobject_cast<ListView*>(widget) != nullptr ? QPoint(14, 14) : widget->rect().center()));
  letItSettle();
}

void WindowMonkey::escape() {
  record(QStringLiteral("back to the lists"));
  calm_ = true;
  while (QApplication::activePopupWidget() != nullptr) {
    QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_Escape);
  }
  mainWindow()->resize(1200, 900);
  letItSettle();
  clickIfPossible("cancel");  // of the colour editor
  if (runsOn() && form_->large.usable()) {
    for (QAction* action : mainWindow()->findChildren<QAction*>(QStringLiteral("large"))) action->trigger();
    letItSettle();
  }
  if (runsOn() && form_->Frame1.showing()) {
    // A first start, or preferences that another file's loss has opened.
    if (form_->List5.usable() && form_->List5.selectedCount() == 0 && !form_->List5.empty()) {
      form_->List5.userTick(0, true);
    }
    clickIfPossible("Option5");
    for (const char* box : {"Check6", "Check3", "Check5"}) {
      const auto* const ticked = mainWindow()->findChild<QAbstractButton*>(QLatin1String(box));
      if (ticked != nullptr && ticked->isChecked()) clickIfPossible(box);
    }
    clickIfPossible("Command5");
    clickIfPossible("Command00");
  }
  calm_ = false;
  if (!runsOn() || !broken_.empty()) return;
  letItSettle();
  for (ListBox* list : {&form_->List2, &form_->List1, &form_->finalList()}) {
    const auto* const view = mainWindow()->findChild<QWidget*>(qstring(list->name()));
    if (!list->showing() || view == nullptr || !view->isVisible()) broken("does not come back: " + list->name());
  }
}

void WindowMonkey::record(const QString& action) {
  actions_.push_back(action);
  if (actions_.size() > keptActions) actions_.erase(actions_.begin());
}

void WindowMonkey::broken(const std::string& what) {
  if (broken_.empty()) broken_ = what;
}

std::string WindowMonkey::history() const {
  std::string text;
  for (const QString& action : actions_) text += bytesOf(action) + "\n";
  return text;
}

}  // namespace plimo
