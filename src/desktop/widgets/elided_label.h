// A line of plain text that is elided if it does not fit.
#pragma once

#include <QLabel>

namespace plimo {

class ElidedLabel : public QLabel {
 public:
  ElidedLabel(Qt::TextElideMode mode, QWidget* parent);

  QSize minimumSizeHint() const override;
  QString shownText() const;  // the text, elided to the present width

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::TextElideMode mode_;
};

}  // namespace plimo
