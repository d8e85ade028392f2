// While closed, nothing that the user does gets through but to one widget, and to a box that comes up meanwhile.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace plimo {

class InputGate : public QObject {
 public:
  bool isOpen() const { return depth_ == 0; }
  // Nested calls count. The widget, if any, still hears of mouse and keyboard.
  void close(QWidget* let = nullptr);
  void reopen();
  // Called when the gate is open again.
  std::function<void()> opened;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int depth_ = 0;
  QPointer<QWidget> let_;
};

}  // namespace plimo
