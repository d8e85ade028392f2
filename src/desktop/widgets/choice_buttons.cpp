#include "desktop/widgets/choice_buttons.h"

#include <QKeyEvent>

#include "controls/form.h"

namespace plimo {

OptionButtonWidget::OptionButtonWidget(OptionButton& model, QWidget* parent) : QRadioButton(parent), model_(model) {
  setAutoExclusive(false);
}

void OptionButtonWidget::keyPressEvent(QKeyEvent* event) {
  const bool forward = event->key() == Qt::Key_Down || event->key() == Qt::Key_Right;
  const bool back = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left;
  if (!forward && !back) {
    QRadioButton::keyPressEvent(event);
    return;
  }
  Control* previous = nullptr;
  bool passed = false;
  for (Control* other : model_.form().controls()) {
    if (other->kind() != ControlKind::optionButton || other->container() != model_.container()) continue;
    if (other == &model_) {
      passed = true;
    } else if (other->usable() && !passed) {
      previous = other;
    } else if (other->usable() && forward) {
      other->userClick();
      return;
    }
  }
  if (back && previous != nullptr) previous->userClick();
}

}  // namespace plimo
