#include "desktop/widgets/picture_button.h"

#include <QPainter>

#include "desktop/theme/art.h"
#include "desktop/theme/painting.h"

namespace plimo {

PictureButton::PictureButton(bool stretched, QWidget* parent) : ReturnActivatesButton(parent), stretched_(stretched) {
  setFocusPolicy(stretched ? Qt::NoFocus : Qt::TabFocus);
  if (!stretched) setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
}

void PictureButton::setArt(const QString& name) {
  art_ = name;
  update();
}

void PictureButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (stretched_) {
    paintArt(painter, art_, rect(), Qt::IgnoreAspectRatio);
    return;
  }
  QRectF area = rect().adjusted(2, 2, -2, -2);
  if (isDown()) area.translate(0, 1);
  if (!underMouse() && !hasFocus()) painter.setOpacity(0.92);
  const QRectF covered = paintArt(painter, art_, area, Qt::KeepAspectRatio);
  painter.setOpacity(1);
  if (hasFocus()) paintFocusRing(painter, covered.adjusted(-2, -2, 2, 2), covered.height() / 2 + 2);
}

}  // namespace plimo
