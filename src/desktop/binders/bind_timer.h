// Runs a timer control by a real timer.
#pragma once

#include <QTimer>
#include <functional>

#include "controls/simple_controls.h"

namespace plimo {

class TimerBinder : public ControlObserver {
 public:
  // Ticks are dropped while `acceptsTicks` returns false.
  TimerBinder(Timer& timer, std::function<bool()> acceptsTicks)
      : timer_(timer), acceptsTicks_(std::move(acceptsTicks)) {
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] {
      if (acceptsTicks_()) timer_.elapsed();
    });
    timer_.addObserver(*this);
  }
  ~TimerBinder() override { timer_.removeObserver(*this); }

  void propertyChanged(Property property) override {
    if (property != Property::interval && property != Property::enabled) return;
    if (timer_.running()) {
      clock_.start(timer_.interval());
    } else {
      clock_.stop();
    }
  }

 private:
  Timer& timer_;
  std::function<bool()> acceptsTicks_;
  QTimer clock_;
};

}  // namespace plimo
