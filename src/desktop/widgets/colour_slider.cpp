#include "desktop/widgets/colour_slider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cstdlib>

#include "desktop/theme/contrast.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

int numberWidth() { return scaled(38); }

}  // namespace

ColourSlider::ColourSlider(Slider& model, QWidget* parent) : QSlider(Qt::Horizontal, parent), model_(model) {
  setRange(Slider::minimum, Slider::maximum);
  setSingleStep(Slider::smallStep);
  setPageStep(Slider::largeStep);
  setFocusPolicy(Qt::StrongFocus);
  full_ = qcolor(rgbOf(model.foreColour()));
}

QStyleOptionSlider ColourSlider::sliderOption() const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  option.rect.setWidth(width() - numberWidth());
  option.palette.setColor(QPalette::Highlight, full_);
  return option;
}

QRect ColourSlider::part(QStyle::SubControl part) const {
  const QStyleOptionSlider option = sliderOption();
  return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
}

int ColourSlider::valueAt(int x) const {
  const QRect groove = part(QStyle::SC_SliderGroove);
  return QStyle::sliderValueFromPosition(minimum(), maximum(), x - groove.left(), groove.width());
}

void ColourSlider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int thicker = scaled(2);
  const QRectF groove = QRectF(part(QStyle::SC_SliderGroove)).adjusted(0, -thicker, 0, thicker);
  QLinearGradient gradient(groove.topLeft(), groove.topRight());
  gradient.setColorAt(0, Qt::black);
  gradient.setColorAt(1, full_);
  painter.setPen(QPen(theme().border, 1));
  painter.setBrush(gradient);
  painter.drawRoundedRect(groove, groove.height() / 2, groove.height() / 2);
  painter.setPen(theme().text);
  painter.drawText(rect().adjusted(width() - numberWidth(), 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
                   QString::number(value()));
  QStyleOptionSlider option = sliderOption();
  option.subControls = QStyle::SC_SliderHandle;
  style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
}

void ColourSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  held_ = true;
  const QRect handle = part(QStyle::SC_SliderHandle);
  const int x = event->position().toPoint().x();
  const int offset = x - handle.center().x();
  const bool onHandle = std::abs(offset) <= handle.width() / 2;
  grip_ = onHandle ? offset : 0;
  if (!onHandle) model_.userClickAt(valueAt(x));
}

void ColourSlider::mouseMoveEvent(QMouseEvent* event) {
  if (!held_) return;
  const int wanted = valueAt(event->position().toPoint().x() - grip_);
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

}  // namespace plimo
