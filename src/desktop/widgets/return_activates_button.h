// A button that the Return key presses as the space bar does.
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>

namespace plimo {

template <class Button>
class ReturnActivatesButton : public Button {
 public:
  using Button::Button;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      this->click();
    } else {
      Button::keyPressEvent(event);
    }
  }
};

}  // namespace plimo
