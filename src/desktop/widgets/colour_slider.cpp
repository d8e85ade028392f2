#include "desktop/widgets/colour_slider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/theme/contrast.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

double handleRadius() { return scaled(9); }
int numberWidth() { return scaled(38); }

}  // namespace

ColourSlider::ColourSlider(Slider& model, QWidget* parent) : QSlider(Qt::Horizontal, parent), model_(model) {
  setRange(Slider::minimum, Slider::maximum);
  setSingleStep(Slider::smallStep);
  setPageStep(Slider::largeStep);
  setFocusPolicy(Qt::StrongFocus);
  full_ = qcolor(rgbOf(model.foreColour()));
}

void ColourSlider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF line = track();
  QLinearGradient gradient(line.topLeft(), line.topRight());
  gradient.setColorAt(0, Qt::black);
  gradient.setColorAt(1, full_);
  painter.setPen(QPen(theme().border, 1));
  painter.setBrush(gradient);
  painter.drawRoundedRect(line, line.height() / 2, line.height() / 2);
  const QPointF centre(xOf(value()), line.center().y());
  painter.setPen(QPen(theme().quiet, 1));
  painter.setBrush(theme().button);
  painter.drawEllipse(centre, handleRadius(), handleRadius());
  painter.setPen(Qt::NoPen);
  painter.setBrush(full_);
  painter.drawEllipse(centre, handleRadius() * 0.55, handleRadius() * 0.55);
  painter.setPen(theme().text);
  painter.drawText(rect().adjusted(width() - numberWidth(), 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
                   QString::number(value()));
  if (hasFocus()) paintFocusRing(painter, rect(), 4);
}

void ColourSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  held_ = true;
  const double offset = event->position().x() - xOf(value());
  grip_ = std::abs(offset) <= handleRadius() ? offset : 0;
  if (std::abs(offset) > handleRadius()) model_.userClickAt(valueAt(event->position().x()));
}

void ColourSlider::mouseMoveEvent(QMouseEvent* event) {
  if (!held_) return;
  const int wanted = valueAt(event->position().x() - grip_);
  if (wanted != model_.value()) model_.userDrag(wanted);
}

void ColourSlider::mouseReleaseEvent(QMouseEvent*) { held_ = false; }

void ColourSlider::wheelEvent(QWheelEvent* event) {
  const int steps = event->angleDelta().y() > 0 ? Slider::largeStep : -Slider::largeStep;
  model_.userDrag(std::clamp(model_.value() + steps, Slider::minimum, Slider::maximum));
  event->accept();
}

void ColourSlider::keyPressEvent(QKeyEvent* event) {
  int wanted = model_.value();
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
      wanted -= Slider::smallStep;
      break;
    case Qt::Key_Right:
    case Qt::Key_Up:
      wanted += Slider::smallStep;
      break;
    case Qt::Key_PageDown:
      wanted -= Slider::largeStep;
      break;
    case Qt::Key_PageUp:
      wanted += Slider::largeStep;
      break;
    case Qt::Key_Home:
      wanted = Slider::minimum;
      break;
    case Qt::Key_End:
      wanted = Slider::maximum;
      break;
    default:
      QSlider::keyPressEvent(event);
      return;
  }
  model_.userKey(std::clamp(wanted, Slider::minimum, Slider::maximum));
}

QRectF ColourSlider::track() const {
  const double thickness = scaled(8);
  const double end = handleRadius() + 3;
  return {end, (height() - thickness) / 2.0, std::max(1.0, width() - numberWidth() - 2 * end), thickness};
}

double ColourSlider::xOf(int value) const { return track().left() + track().width() * value / Slider::maximum; }

int ColourSlider::valueAt(double x) const {
  const double part = (x - track().left()) / track().width();
  return static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * Slider::maximum));
}

}  // namespace plimo
