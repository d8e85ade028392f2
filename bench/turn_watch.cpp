#include "turn_watch.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <ctime>

namespace plimo::bench {

namespace {

double seconds(clockid_t clock) {
  timespec time{};
  ::clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

// Each look begins with one of the two signals. What comes out of a wait is heard of as its first event: a dispatcher
// may tell that it is awake only when it has dealOrder with that.
TurnWatch::TurnWatch() {
  const QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance();
  connect(loop, &QAbstractEventDispatcher::awake, this, [this] {
    end();
    begin();
  });
  connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
    end();
    waiting_ = true;
  });
  QCoreApplication::instance()->installEventFilter(this);
  restart();
}

void TurnWatch::restart() {
  longest_ = {};
  begin();
}

TurnWatch::Turn TurnWatch::longest() {
  end();
  return longest_;
}

void TurnWatch::begin() {
  waiting_ = false;
  began_ = {seconds(CLOCK_MONOTONIC), seconds(CLOCK_THREAD_CPUTIME_ID)};
}

void TurnWatch::end() {
  if (waiting_) return;
  longest_.wall = std::max(longest_.wall, seconds(CLOCK_MONOTONIC) - began_.wall);
  longest_.processor = std::max(longest_.processor, seconds(CLOCK_THREAD_CPUTIME_ID) - began_.processor);
}

bool TurnWatch::eventFilter(QObject* watched, QEvent* event) {
  if (waiting_) begin();
  if (painting && event->type() == QEvent::Paint && watched->isWidgetType()) {
    painting(static_cast<const QWidget&>(*watched));
  }
  return false;
}

}  // namespace plimo::bench
