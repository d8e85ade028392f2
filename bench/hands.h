// A user of the window in this very process: finds widgets by their names, gives clicks and keys to the window system,
// and answers the boxes that come up.
#pragma once

#include <QMessageBox>
#include <QString>
#include <QTimer>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "desktop/widgets/list_view.h"

namespace plimo::bench {

// Throws std::runtime_error where there is no such thing to be seen.
class Hands {
 public:
  Hands();

  bool shows(const char* name) const { return look(name) != nullptr; }
  QWidget& find(const char* name) const;
  ListView& list(const char* name) const;

  void click(const char* name) const;
  void clickRow(const char* list, std::size_t row, Qt::KeyboardModifiers modifiers = {}) const;
  void tick(const char* list, std::size_t row) const;
  void type(const char* list, char letter) const;
  void press(const char* list, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
  // The right mouse button on a row, then an item of the menu that comes up.
  void chooseFor(const char* list, std::size_t row, const char* item) const;
  // A menu of the bar, then one of its items.
  void chooseFromBar(const char* menu, const char* item) const;

  // What the next boxes are answered with, in turn.
  void answer(QMessageBox::StandardButton button) { answers_.push_back({button, {}}); }
  void answer(const std::string& text) { answers_.push_back({QMessageBox::NoButton, text}); }
  // Each box that came was one that was expected, and each that was expected came.
  bool allAnswered() const { return answers_.empty() && !surprised_; }

  // Lets the window live until the condition holds; false where it does not within half a minute.
  bool until(const std::function<bool()>& condition) const;
  // Lets it live for so many milliseconds.
  void pause(int milliseconds) const;

 private:
  struct Answer {
    QMessageBox::StandardButton button;
    std::string text;
  };

  static QWidget* look(const char* name);
  void answerBox();
  void surprise(const QString& what);

  std::deque<Answer> answers_;
  QTimer looking_;
  bool surprised_ = false;
};

}  // namespace plimo::bench
