// Measures how long the window is unresponsive: the time between two moments at which its event loop looks for events.
#pragma once

#include <QObject>
#include <array>
#include <cstddef>
#include <functional>

class QWidget;

namespace plimo {

// Measures the iterations of the event loop of the thread that creates it. Nested event loops end the current
// iteration; waiting for events belongs to none.
class EventLoopLatency : public QObject {
 public:
  // Seconds.
  struct Time {
    double wall = 0;
    double cpu = 0;  // of this thread
  };

  // What an iteration is spent on. The rest is the work of handlers.
  enum class Phase { files, lists, paint };
  using Phases = std::array<double, 3>;  // wall-clock seconds, by Phase

  explicit EventLoopLatency(std::function<Time()> clock = now);

  // Forgets the previous iterations and starts one.
  void restart();
  // The longest iteration since the restart, including the current one. The two times may be those of two iterations.
  Time longest();
  // What the longest iteration by the wall clock was spent on, as far as `spent` was called in it.
  Phases phasesOfLongest();
  // Adds to a phase of the current iteration.
  void spent(Phase phase, double seconds) { phases_[static_cast<std::size_t>(phase)] += seconds; }

  // Called before each paint event of a widget.
  std::function<void(const QWidget& widget)> onPaint;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static Time now();
  void begin();
  void end();

  std::function<Time()> clock_;
  Time longest_;
  Time began_;
  Phases phases_{};
  Phases phasesOfLongest_{};
  bool waiting_ = false;
};

}  // namespace plimo
