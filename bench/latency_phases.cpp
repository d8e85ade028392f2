#include "latency_phases.h"

#include <QEvent>
#include <QThread>
#include <utility>

namespace plimo::bench {

namespace {

using Phase = EventLoopLatency::Phase;

EventLoopLatency* measured = nullptr;  // by the LatencyPhases that exists
thread_local int depth = 0;            // of the timers

class TimedReplacement : public FileReplacement {
 public:
  explicit TimedReplacement(std::unique_ptr<FileReplacement> file) : file_(std::move(file)) {}
  void write(std::string_view bytes) override {
    const PhaseTimer timer(Phase::files);
    file_->write(bytes);
  }
  void commit() override {
    const PhaseTimer timer(Phase::files);
    file_->commit();
  }

 private:
  std::unique_ptr<FileReplacement> file_;
};

bool paints(QEvent::Type type) {
  switch (type) {
    case QEvent::UpdateRequest:
    case QEvent::Paint:
    case QEvent::Expose:
    case QEvent::LayoutRequest:
      return true;
    default:
      return false;
  }
}

}  // namespace

// The lists notify their observers, and the window applies what has changed, after the end of each outermost handler.
LatencyPhases::LatencyPhases(WindowFixture& fixture) {
  measured = &fixture.latency;
  fixture.onForm = [](Form1& form) {
    const auto ended = std::make_shared<std::unique_ptr<Stopwatch>>();
    form.dispatcher().atEnd([ended] { *ended = std::make_unique<Stopwatch>(); });
    form.dispatcher().beforePaint([ended] {
      if (*ended) spent(Phase::lists, (*ended)->elapsed().wall);
      ended->reset();
    });
  };
}

LatencyPhases::~LatencyPhases() { measured = nullptr; }

void LatencyPhases::spent(Phase phase, double seconds) {
  if (depth == 0 && measured != nullptr && QThread::currentThread() == qApp->thread()) measured->spent(phase, seconds);
}

PhaseTimer::PhaseTimer(Phase phase) : phase_(phase) { ++depth; }

PhaseTimer::~PhaseTimer() {
  --depth;
  LatencyPhases::spent(phase_, stopwatch_.elapsed().wall);
}

bool TimedApplication::notify(QObject* receiver, QEvent* event) {
  if (!paints(event->type())) return QApplication::notify(receiver, event);
  const PhaseTimer timer(Phase::paint);
  return QApplication::notify(receiver, event);
}

bool TimedFiles::fileExists(std::string_view path) {
  const PhaseTimer timer(Phase::files);
  return ResponsiveFiles::fileExists(path);
}

bool TimedFiles::folderExists(std::string_view path) {
  const PhaseTimer timer(Phase::files);
  return ResponsiveFiles::folderExists(path);
}

std::unique_ptr<FileView> TimedFiles::openForReading(std::string_view path) {
  const PhaseTimer timer(Phase::files);
  return ResponsiveFiles::openForReading(path);
}

std::unique_ptr<FileReplacement> TimedFiles::replaceFile(std::string_view path, Force force) {
  const PhaseTimer timer(Phase::files);
  return std::make_unique<TimedReplacement>(ResponsiveFiles::replaceFile(path, force));
}

void TimedFiles::deleteFile(std::string_view path, Force force) {
  const PhaseTimer timer(Phase::files);
  ResponsiveFiles::deleteFile(path, force);
}

bool TimedFiles::moveFile(std::string_view from, std::string_view to, Force force) {
  const PhaseTimer timer(Phase::files);
  return ResponsiveFiles::moveFile(from, to, force);
}

}  // namespace plimo::bench
