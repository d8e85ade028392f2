// Drives the real window from within its process: finds widgets by object name, sends mouse and key events to the
// window system and answers modal dialogs.
#pragma once

#include <QMessageBox>
#include <QString>
#include <QTimer>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "desktop/widgets/list_view.h"

namespace plimo {

// Every function that names a widget, row or menu item throws std::runtime_error if it is not visible.
class UiDriver {
 public:
  UiDriver();

  bool isVisible(const char* name) const { return findVisible(name) != nullptr; }
  QWidget& find(const char* name) const;
  ListView& list(const char* name) const;

  void click(const char* name) const;
  void clickRow(const char* list, std::size_t row, Qt::KeyboardModifiers modifiers = {}) const;
  void tick(const char* list, std::size_t row) const;
  void type(const char* list, char letter) const;
  void press(const char* list, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
  // Right-clicks a row and chooses an item of its context menu.
  void chooseFromContextMenu(const char* list, std::size_t row, const char* item) const;
  void chooseFromMenuBar(const char* menu, const char* item) const;

  // Queue the answers to the next dialogs.
  void answer(QMessageBox::StandardButton button) { answers_.push_back({button, {}}); }
  void answer(const std::string& text) { answers_.push_back({QMessageBox::NoButton, text}); }
  // True if all queued answers were used and no other dialog appeared.
  bool dialogsAsExpected() const { return answers_.empty() && !unexpectedDialog_; }

  // Runs the event loop until the condition is true. Returns false after 30 seconds, or if an unexpected dialog
  // appeared.
  bool waitUntil(const std::function<bool()>& condition) const;
  // Runs the event loop for this time.
  void runEventLoop(int milliseconds) const;

 private:
  struct Answer {
    QMessageBox::StandardButton button;
    std::string text;
  };

  static QWidget* findVisible(const char* name);
  void answerDialog();
  void reportUnexpectedDialog(const QString& what);

  std::deque<Answer> answers_;
  QTimer dialogTimer_;
  bool unexpectedDialog_ = false;
};

}  // namespace plimo
