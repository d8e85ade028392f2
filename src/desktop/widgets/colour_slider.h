// A slider for one colour component, 0 to 255, with its value in figures.
#pragma once

#include <QColor>
#include <QSlider>
#include <QStyleOptionSlider>

#include "controls/simple_controls.h"

namespace plimo {

class ColourSlider : public QSlider {
 public:
  ColourSlider(Slider& model, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  // The model distinguishes a click on the groove, dragging and keys, which the toolkit's slider does not.
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QStyleOptionSlider sliderOption() const;  // without the area of the figures
  QRect part(QStyle::SubControl part) const;
  int valueAt(int x) const;

  Slider& model_;
  QColor full_;  // the component at its maximum
  bool held_ = false;
  int grip_ = 0;  // pixels from the handle's centre to where it was pressed
};

}  // namespace plimo
