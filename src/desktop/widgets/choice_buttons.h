// Check boxes and option buttons that show their model's value: a click is passed to the model, which changes it.
#pragma once

#include <QCheckBox>
#include <QRadioButton>

#include "controls/simple_controls.h"

namespace plimo {

class CheckBoxWidget : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void nextCheckState() override {}
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }
};

class OptionButtonWidget : public QRadioButton {
 public:
  OptionButtonWidget(OptionButton& model, QWidget* parent);

 protected:
  void nextCheckState() override {}
  bool hitButton(const QPoint& point) const override { return rect().contains(point); }
  // The arrow keys choose the neighbour in the model's group.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  OptionButton& model_;
};

}  // namespace plimo
