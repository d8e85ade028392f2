// One quiet line at the foot of the window about the last command.
#pragma once

#include "desktop/widgets/elided_label.h"

namespace plimo {

class StatusLine : public ElidedLabel {
 public:
  explicit StatusLine(QWidget* parent);

  // Plain text; empty for none. Announced to assistive tools.
  void showText(const QString& text);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyMargins();
};

}  // namespace plimo
