#include "support/window/ui_driver.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <stdexcept>

#include "desktop/theme/strings.h"

namespace plimo {

namespace {

constexpr int pollIntervalMs = 2;
constexpr qint64 timeoutMs = 30'000;

QWindow* windowOf(const QWidget& widget) { return widget.window()->windowHandle(); }

void clickAt(const QWidget& widget, const QPoint& position, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
  QTest::mouseClick(windowOf(widget), button, modifiers, widget.mapTo(widget.window(), position));
}

void clickItem(QMenu& menu, const char* item) {
  for (QAction* action : menu.actions()) {
    if (action->objectName() != QLatin1String(item)) continue;
    clickAt(menu, menu.actionGeometry(action).center());
    return;
  }
  throw std::runtime_error(std::string("no item ") + item);
}

QMenu& openMenu() {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr) throw std::runtime_error("no menu is open");
  return *menu;
}

}  // namespace

UiDriver::UiDriver() {
  dialogTimer_.setInterval(pollIntervalMs);
  QObject::connect(&dialogTimer_, &QTimer::timeout, [this] { answerDialog(); });
  dialogTimer_.start();
}

QWidget* UiDriver::findVisible(const char* name) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return widget;
  }
  return nullptr;
}

QWidget& UiDriver::find(const char* name) const {
  QWidget* widget = findVisible(name);
  if (widget == nullptr) throw std::runtime_error(std::string(name) + " is not visible");
  return *widget;
}

ListView& UiDriver::list(const char* name) const { return dynamic_cast<ListView&>(find(name)); }

void UiDriver::click(const char* name) const {
  const QWidget& widget = find(name);
  clickAt(widget, widget.rect().center());
}

void UiDriver::clickRow(const char* name, std::size_t row, Qt::KeyboardModifiers modifiers) const {
  ListView& list = this->list(name);
  list.reveal(row);
  clickAt(*list.viewport(), list.rowRect(row).center(), Qt::LeftButton, modifiers);
}

void UiDriver::tick(const char* name, std::size_t row) const {
  ListView& list = this->list(name);
  list.reveal(row);
  const QRect rect = list.rowRect(row);
  clickAt(*list.viewport(), QPoint(rect.left() + rect.height() / 2, rect.center().y()));
}

void UiDriver::type(const char* name, char letter) const { QTest::keyClick(windowOf(find(name)), letter); }

void UiDriver::press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(windowOf(find(name)), key, modifiers);
}

void UiDriver::chooseFromContextMenu(const char* name, std::size_t row, const char* item) const {
  ListView& list = this->list(name);
  list.reveal(row);
  clickAt(*list.viewport(), list.rowRect(row).center(), Qt::RightButton);
  clickItem(openMenu(), item);
}

void UiDriver::chooseFromMenuBar(const char* menu, const char* item) const {
  for (const QWidget* widget : QApplication::allWidgets()) {
    const auto* bar = qobject_cast<const QMenuBar*>(widget);
    if (bar == nullptr || !bar->isVisible()) continue;
    for (QAction* action : bar->actions()) {
      if (action->objectName() != QLatin1String(menu)) continue;
      clickAt(*bar, bar->actionGeometry(action).center());
      clickItem(openMenu(), item);
      return;
    }
  }
  throw std::runtime_error(std::string("no menu ") + menu);
}

void UiDriver::reportUnexpectedDialog(const QString& what) {
  unexpectedDialog_ = true;
  qWarning("unexpected dialog: %s", qPrintable(what));
}

void UiDriver::answerDialog() {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr || windowOf(*modal) == nullptr || !windowOf(*modal)->isExposed()) return;
  auto* dialog = qobject_cast<QDialog*>(modal);
  if (dialog == nullptr) return;
  if (answers_.empty()) {
    reportUnexpectedDialog(dialog->windowTitle());
    dialog->reject();
    return;
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  if (auto* message = qobject_cast<QMessageBox*>(dialog)) {
    QAbstractButton* button = message->button(answer.button);
    if (button != nullptr) {
      clickAt(*button, button->rect().center());
    } else {
      reportUnexpectedDialog(message->text());
      dialog->reject();
    }
    return;
  }
  auto* field = dialog->findChild<QLineEdit*>();
  if (field == nullptr) return;
  field->setText(qstring(answer.text));
  QTest::keyClick(windowOf(*dialog), Qt::Key_Return);
}

bool UiDriver::waitUntil(const std::function<bool()>& condition) const {
  QEventLoop loop;
  QElapsedTimer elapsed;
  elapsed.start();
  bool satisfied = condition();
  QTimer poll;
  poll.setInterval(pollIntervalMs);
  QObject::connect(&poll, &QTimer::timeout, [&] {
    satisfied = condition();
    if (satisfied || unexpectedDialog_ || elapsed.hasExpired(timeoutMs)) loop.quit();
  });
  poll.start();
  if (!satisfied) loop.exec();
  return satisfied;
}

void UiDriver::runEventLoop(int milliseconds) const {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace plimo
