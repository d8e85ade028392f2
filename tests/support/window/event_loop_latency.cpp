#include "support/window/event_loop_latency.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <ctime>
#include <utility>

namespace plimo {

namespace {

double seconds(clockid_t clock) {
  timespec time{};
  ::clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

// An iteration starts with one of the two signals, or with the first event after waiting: some event dispatchers emit
// awake only after they have delivered the events that ended the wait.
EventLoopLatency::EventLoopLatency(std::function<Time()> clock) : clock_(std::move(clock)) {
  const QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
  connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
    end();
    begin();
  });
  connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
    end();
    waiting_ = true;
  });
  QCoreApplication::instance()->installEventFilter(this);
  restart();
}

EventLoopLatency::Time EventLoopLatency::now() { return {seconds(CLOCK_MONOTONIC), seconds(CLOCK_THREAD_CPUTIME_ID)}; }

void EventLoopLatency::restart() {
  longest_ = {};
  phasesOfLongest_ = {};
  begin();
}

EventLoopLatency::Time EventLoopLatency::longest() {
  end();
  return longest_;
}

EventLoopLatency::Phases EventLoopLatency::phasesOfLongest() {
  end();
  return phasesOfLongest_;
}

void EventLoopLatency::begin() {
  waiting_ = false;
  phases_ = {};
  began_ = clock_();
}

void EventLoopLatency::end() {
  if (waiting_) return;
  const Time time = clock_();
  if (time.wall - began_.wall > longest_.wall) {
    longest_.wall = time.wall - began_.wall;
    phasesOfLongest_ = phases_;
  }
  longest_.cpu = std::max(longest_.cpu, time.cpu - began_.cpu);
}

bool EventLoopLatency::eventFilter(QObject* watched, QEvent* event) {
  if (waiting_) begin();
  if (onPaint && event->type() == QEvent::Paint && watched->isWidgetType()) {
    onPaint(static_cast<const QWidget&>(*watched));
  }
  return false;
}

}  // namespace plimo
