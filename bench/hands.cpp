#include "hands.h"

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

namespace plimo::bench {

namespace {

constexpr int beat = 2;  // milliseconds between two looks at what is waited for
constexpr qint64 patience = 30'000;

QWindow* windowOf(const QWidget& widget) { return widget.window()->windowHandle(); }

void clickAt(const QWidget& widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
  QTest::mouseClick(windowOf(widget), button, modifiers, widget.mapTo(widget.window(), place));
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
  if (menu == nullptr) throw std::runtime_error("no menu came up");
  return *menu;
}

}  // namespace

Hands::Hands() {
  looking_.setInterval(beat);
  QObject::connect(&looking_, &QTimer::timeout, [this] { answerBox(); });
  looking_.start();
}

QWidget* Hands::look(const char* name) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return widget;
  }
  return nullptr;
}

QWidget& Hands::find(const char* name) const {
  QWidget* widget = look(name);
  if (widget == nullptr) throw std::runtime_error(std::string(name) + " is not to be seen");
  return *widget;
}

ListView& Hands::list(const char* name) const { return dynamic_cast<ListView&>(find(name)); }

void Hands::click(const char* name) const {
  const QWidget& widget = find(name);
  clickAt(widget, widget.rect().center());
}

void Hands::clickRow(const char* name, std::size_t row, Qt::KeyboardModifiers modifiers) const {
  ListView& list = this->list(name);
  list.reveal(row);
  clickAt(*list.viewport(), list.rowRect(row).center(), Qt::LeftButton, modifiers);
}

void Hands::tick(const char* name, std::size_t row) const {
  ListView& list = this->list(name);
  list.reveal(row);
  const QRect place = list.rowRect(row);
  clickAt(*list.viewport(), QPoint(place.left() + place.height() / 2, place.center().y()));
}

void Hands::type(const char* name, char letter) const { QTest::keyClick(windowOf(find(name)), letter); }

void Hands::press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(windowOf(find(name)), key, modifiers);
}

void Hands::chooseFor(const char* name, std::size_t row, const char* item) const {
  ListView& list = this->list(name);
  list.reveal(row);
  clickAt(*list.viewport(), list.rowRect(row).center(), Qt::RightButton);
  clickItem(openMenu(), item);
}

void Hands::chooseFromBar(const char* menu, const char* item) const {
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

void Hands::surprise(const QString& what) {
  surprised_ = true;
  qWarning("a box that nobody expected: %s", qPrintable(what));
}

void Hands::answerBox() {
  QWidget* shown = QApplication::activeModalWidget();
  if (shown == nullptr || windowOf(*shown) == nullptr || !windowOf(*shown)->isExposed()) return;
  auto* box = qobject_cast<QDialog*>(shown);
  if (box == nullptr) return;
  if (answers_.empty()) {
    surprise(box->windowTitle());
    box->reject();
    return;
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  if (auto* message = qobject_cast<QMessageBox*>(box)) {
    QAbstractButton* button = message->button(answer.button);
    if (button != nullptr) {
      clickAt(*button, button->rect().center());
    } else {
      surprise(message->text());
      box->reject();
    }
    return;
  }
  auto* field = box->findChild<QLineEdit*>();
  if (field == nullptr) return;
  field->setText(qstring(answer.text));
  QTest::keyClick(windowOf(*box), Qt::Key_Return);
}

bool Hands::until(const std::function<bool()>& condition) const {
  QEventLoop loop;
  QElapsedTimer passed;
  passed.start();
  bool held = condition();
  QTimer look;
  look.setInterval(beat);
  QObject::connect(&look, &QTimer::timeout, [&] {
    held = condition();
    if (held || surprised_ || passed.hasExpired(patience)) loop.quit();
  });
  look.start();
  if (!held) loop.exec();
  return held;
}

void Hands::pause(int milliseconds) const {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace plimo::bench
