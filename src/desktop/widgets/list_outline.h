// An outline over a list, in the list's colours.
#pragma once

#include <QWidget>

#include "controls/simple_controls.h"

namespace plimo {

class ListOutline : public QWidget {
 public:
  ListOutline(Shape& model, QWidget* parent);

  // Applies the model's outline and border width. Only the border is part of the widget, so that the list below it is
  // not painted twice.
  void updateMask();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // The list that has exactly this geometry; null for none.
  const Control* framedList() const;

  Shape& model_;
};

}  // namespace plimo
