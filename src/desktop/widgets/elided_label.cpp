#include "desktop/widgets/elided_label.h"

#include <QPainter>

namespace plimo {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget* parent) : QLabel(parent), mode_(mode) {
  setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect area = contentsRect();
  painter.drawText(area, static_cast<int>(alignment()) | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), mode_, area.width()));
}

}  // namespace plimo
