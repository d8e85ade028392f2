// What the event loop spends its iterations on: file calls, notifications of the lists, painting.
#pragma once

#include <QApplication>
#include <memory>
#include <string_view>

#include "desktop/shell/responsive_files.h"
#include "stopwatch.h"
#include "support/window/window_fixture.h"

namespace plimo::bench {

// While it exists, the time that this thread spends in each phase is added to the fixture's latency. One at a time.
class LatencyPhases {
 public:
  explicit LatencyPhases(WindowFixture& fixture);
  LatencyPhases(const LatencyPhases&) = delete;
  LatencyPhases& operator=(const LatencyPhases&) = delete;
  ~LatencyPhases();

  // Adds the seconds to a phase, if this is the window's thread and no phase that contains this one is measured.
  static void spent(EventLoopLatency::Phase phase, double seconds);
};

// Measures the time from its creation to its end.
class PhaseTimer {
 public:
  explicit PhaseTimer(EventLoopLatency::Phase phase);
  PhaseTimer(const PhaseTimer&) = delete;
  PhaseTimer& operator=(const PhaseTimer&) = delete;
  ~PhaseTimer();

 private:
  EventLoopLatency::Phase phase_;
  Stopwatch stopwatch_;
};

// Measures the events that lay out and paint widgets.
class TimedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

// Measures the calls that go to the disk, including those of a file that is written.
class TimedFiles : public ResponsiveFiles {
 public:
  using ResponsiveFiles::ResponsiveFiles;
  bool fileExists(std::string_view path) override;
  bool folderExists(std::string_view path) override;
  std::unique_ptr<FileView> openForReading(std::string_view path) override;
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override;
  void deleteFile(std::string_view path, Force force) override;
  bool moveFile(std::string_view from, std::string_view to, Force force) override;
};

}  // namespace plimo::bench
