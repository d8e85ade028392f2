#include "desktop/widgets/seek_slider.h"

#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace plimo {

namespace {

constexpr int steps = 1000;  // of a song
constexpr int keyStep = 5;   // seconds, by arrow key

}  // namespace

SeekSlider::SeekSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) { setRange(0, steps); }

void SeekSlider::showTime(double position, double duration) {
  duration_ = duration;
  if (isSliderDown()) return;
  const double part = duration > 0 ? position / duration : 0;
  // Without tracking only the handle moves: each change of the value is an event for assistive tools.
  setTracking(false);
  setSliderPosition(static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * steps)));
  setTracking(true);
  const int step = duration > 0 ? std::max(1, static_cast<int>(keyStep * steps / duration)) : 1;
  if (step != singleStep()) setSingleStep(step);
}

double SeekSlider::seconds() const { return duration_ * sliderPosition() / steps; }

void SeekSlider::seek(double seconds) {
  if (duration_ <= 0) return;
  takePosition();
  setValue(static_cast<int>(std::lround(seconds / duration_ * steps)));
}

// The user moves on from where the handle is.
void SeekSlider::takePosition() {
  const QSignalBlocker blocker(this);
  setValue(sliderPosition());
}

bool SeekSlider::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
      if (!isSliderDown()) takePosition();
      break;
    default:
      break;
  }
  return QSlider::event(event);
}

}  // namespace plimo
