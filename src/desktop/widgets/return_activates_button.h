// A button that Return presses as blank does.
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>

namespace plimo {

class ReturnActivatesButton : public QAbstractButton {
 public:
  using QAbstractButton::QAbstractButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      click();
    } else {
      QAbstractButton::keyPressEvent(event);
    }
  }
};

}  // namespace plimo
