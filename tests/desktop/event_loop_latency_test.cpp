#include "support/window/event_loop_latency.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace plimo {
namespace {

// On a clock that only the test advances.
class EventLoopLatencyTest : public testing::Test {
 protected:
  void work(double wall, double cpu) {
    time_.wall += wall;
    time_.cpu += cpu;
  }

  // Calls the handler from the event loop.
  static void inEventLoop(const std::function<void()>& handler) {
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
      handler();
      loop.quit();
    });
    loop.exec();
  }

  EventLoopLatency::Time time_;
  EventLoopLatency latency_{[this] { return time_; }};
};

TEST_F(EventLoopLatencyTest, MeasuresTheLongestHandler) {
  inEventLoop([this] { work(6, 2); });
  inEventLoop([this] { work(4, 3); });
  EXPECT_EQ(latency_.longest().wall, 6);
  EXPECT_EQ(latency_.longest().cpu, 3);
  latency_.restart();
  inEventLoop([this] { work(1, 0); });
  EXPECT_EQ(latency_.longest().wall, 1);
  EXPECT_EQ(latency_.longest().cpu, 0);
}

TEST_F(EventLoopLatencyTest, ProcessingEventsEndsAnIteration) {
  inEventLoop([this] {
    for (const double part : {1, 3, 2}) {
      work(part, part);
      QCoreApplication::processEvents();
    }
  });
  EXPECT_EQ(latency_.longest().wall, 3);
}

TEST_F(EventLoopLatencyTest, DoesNotCountWaiting) {
  // Connected after the latency's own slot, so that time passes while the event loop waits.
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &latency_,
                   [this] { work(100, 0); });
  QEventLoop loop;
  QTimer::singleShot(1, &loop, &QEventLoop::quit);
  loop.exec();
  EXPECT_GE(time_.wall, 100);
  EXPECT_EQ(latency_.longest().wall, 0);
}

}  // namespace
}  // namespace plimo
