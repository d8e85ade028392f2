#include "desktop/widgets/seek_slider.h"

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
  quiet_ = true;
  setValue(static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * steps)));
  quiet_ = false;
  const int step = duration > 0 ? std::max(1, static_cast<int>(keyStep * steps / duration)) : 1;
  if (step != singleStep()) setSingleStep(step);
}

double SeekSlider::seconds() const { return duration_ * value() / steps; }

void SeekSlider::sliderChange(SliderChange change) {
  if (quiet_ && change == SliderValueChange) {
    update();
  } else {
    QSlider::sliderChange(change);
  }
}

}  // namespace plimo
