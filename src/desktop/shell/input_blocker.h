// While closed, nothing that the user does gets through but to one widget, and to a box that comes up meanwhile.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace plimo {

class InputBlocker : public QObject {
 public:
  bool isBlocked() const { return depth_ > 0; }
  // Nested calls count. The widget, if any, still hears of mouse and keyboard.
  void block(QWidget* except = nullptr);
  void unblock();
  // Called when the blocker is open again.
  std::function<void()> unblocked;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int depth_ = 0;
  QPointer<QWidget> except_;
};

}  // namespace plimo
