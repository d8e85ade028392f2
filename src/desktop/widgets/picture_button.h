// A picture that can be clicked.
#pragma once

#include "desktop/widgets/return_activates_button.h"

namespace plimo {

class PictureButton : public ReturnActivatesButton<QAbstractButton> {
 public:
  // A stretched picture fills the widget, and looks like a picture and not like a button: no focus, no hover.
  PictureButton(bool stretched, QWidget* parent);

  // The name of a picture in art/; an unknown one shows nothing.
  void setArt(const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool stretched_;
  QString art_;
};

}  // namespace plimo
