// Blocks the user's input while the program works. One widget can be excepted, and so are message boxes that are shown
// meanwhile, and closing a window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace plimo {

class InputBlocker : public QObject {
 public:
  bool isBlocked() const { return depth_ > 0; }
  // Calls may be nested. The excepted widget, if any, still receives mouse and key events, and Escape whatever has the
  // focus.
  void block(QWidget* except = nullptr);
  void unblock();
  // Called when input is no longer blocked.
  std::function<void()> unblocked;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int depth_ = 0;
  QPointer<QWidget> except_;
};

}  // namespace plimo
