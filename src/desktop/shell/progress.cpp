#include "desktop/shell/progress.h"

#include <QApplication>
#include <QLocale>
#include <QThread>
#include <future>
#include <system_error>
#include <utility>

#include "desktop/shell/progress_panel.h"
#include "desktop/theme/strings.h"

namespace plimo {

namespace {

// Milliseconds. Input (Cancel is pressed, the window is uncovered) is processed more often than the panel is updated.
constexpr qint64 inputInterval = 40;
constexpr qint64 updateInterval = 100;
// Shorter work shows no panel.
constexpr qint64 delayMs = 200;
// Work that takes longer lets the window be painted, again and again after that time.
constexpr std::chrono::milliseconds workInterval(10);
constexpr std::chrono::seconds endingPatience(2);
constexpr std::chrono::milliseconds patienceAfterCancel(500);
// A disk that is asked within this time after it was given up is asked by the same command.
constexpr qint64 sameCommandMs = 1000;

const QLocale& numbers() {
  static const QLocale english(QLocale::English);
  return english;
}

QString grouped(std::uint64_t number) { return numbers().toString(static_cast<qulonglong>(number)); }

QString titleOf(Task task) {
  switch (task) {
    case Task::scan:
      return QStringLiteral("Looking for songs");
    case Task::copy:
      return QStringLiteral("Copying");
    case Task::deletion:
      return QStringLiteral("Deleting");
  }
  return {};
}

QString sizeText(std::uint64_t bytes) {
  return numbers().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeTraditionalFormat);
}

}  // namespace

DesktopProgress::DesktopProgress(InputBlocker& blocker) : blocker_(blocker) {}

DesktopProgress::~DesktopProgress() = default;

void DesktopProgress::begin(Task task) {
  running_ = true;
  task_ = task;
  cover(Flush::yes);
}

void DesktopProgress::end() {
  uncover();
  running_ = false;
}

void DesktopProgress::cover(Flush flush) {
  since_.start();
  lastInput_ = 0;
  lastPaint_ = 0;
  if (flush == Flush::yes && beforePaint) beforePaint();
  focusBefore_ = QApplication::focusWidget();
  QWidget* over = window ? window() : nullptr;
  if (over != nullptr) panel_ = new ProgressPanel(over);
  blocker_.block(panel_);
}

void DesktopProgress::uncover() {
  const bool hadFocus = panel_ != nullptr && panel_->isVisible();
  delete panel_.data();
  blocker_.unblock();
  if (hadFocus && focusBefore_ != nullptr && focusBefore_->isVisible()) focusBefore_->setFocus();
}

bool DesktopProgress::waitForDisk(std::chrono::milliseconds since) {
  // Until then, what the user does stays in the queue: blocked input would be lost.
  if (!running_ && !waiting_ && since.count() < delayMs) return true;
  const bool wasEnding = ending_;
  if (!running_ && !waiting_) {
    waiting_ = true;
    cover(Flush::yes);
  }
  if (waiting_ && panel_ != nullptr && panel_->isHidden()) {
    panel_->begin(QStringLiteral("Waiting for the disk"), true);
  }
  if (waiting_ && panel_ != nullptr) panel_->update(QString(), QString(), -1);
  if (running_) due();  // shows the task's panel
  processInput();
  // What is read while the program ends may be needed to keep something, and the disk may just be slow.
  if (wasEnding) return since < endingPatience;
  const bool again = !running_ && sinceGivenUp_.isValid() && sinceGivenUp_.elapsed() - since.count() < sameCommandMs;
  if (!cancelled() && (!again || since < patienceAfterCancel)) return true;
  sinceGivenUp_.start();
  return false;
}

void DesktopProgress::diskAnswered() {
  if (std::exchange(waiting_, false)) uncover();
}

void DesktopProgress::runInBackground(const std::function<void()>& work) {
  std::future<void> done;
  if (QThread::currentThread() == qApp->thread()) {
    try {
      done = std::async(std::launch::async, work);
    } catch (const std::system_error&) {  // there is no thread
    }
  }
  if (!done.valid()) {
    work();
    return;
  }
  if (done.wait_for(workInterval) != std::future_status::ready) {
    const bool ownPanel = !running_ && !waiting_ && !std::exchange(working_, true);
    QElapsedTimer since;
    since.start();
    blocker_.block();
    bool covered = false;
    do {
      if (ownPanel && !covered && since.elapsed() >= delayMs) {
        covered = true;
        cover(Flush::no);
        if (panel_ != nullptr) panel_->begin(QStringLiteral("Working"), false);
      }
      if (running_) due();
      // What the user has done until the panel is shown stays in the queue: blocked input would be lost.
      const auto input = ownPanel && !covered ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents;
      QCoreApplication::processEvents(input, 5);
    } while (done.wait_for(workInterval) != std::future_status::ready);
    if (covered) uncover();
    if (ownPanel) working_ = false;
    blocker_.unblock();
  }
  done.get();
}

bool DesktopProgress::cancelled() const { return ending_ || (panel_ != nullptr && panel_->cancelled()); }

bool DesktopProgress::due() {
  const qint64 now = since_.elapsed();
  const bool toUpdate = now >= delayMs && now - lastPaint_ >= updateInterval;
  if (!toUpdate && now - lastInput_ < inputInterval) return false;
  lastInput_ = now;
  if (!toUpdate) {
    processInput();
    return false;
  }
  lastPaint_ = now;
  if (panel_ != nullptr && panel_->isHidden()) panel_->begin(titleOf(task_), task_ == Task::scan);
  return true;
}

void DesktopProgress::processInput() { QCoreApplication::processEvents(QEventLoop::AllEvents, 5); }

void DesktopProgress::update(const ProgressUpdate& update) {
  if (!due() || panel_ == nullptr) return;
  const double total = static_cast<double>(update.total);
  switch (task_) {
    case Task::scan: {
      const QString found =
          update.done == 1 ? QStringLiteral("1 song found") : grouped(update.done) + QStringLiteral(" songs found");
      const QString time = clockText(static_cast<double>(since_.elapsed()) / 1000);
      panel_->update(shownText(update.name), found + QStringLiteral("  ·  ") + time, -1);
      break;
    }
    case Task::copy: {
      const double ofFile = update.size > 0 ? static_cast<double>(update.bytes) / static_cast<double>(update.size) : 0;
      const double done = static_cast<double>(update.done > 0 ? update.done - 1 : 0) + ofFile;
      panel_->update(
          shownText(update.name),
          QStringLiteral("File %1 of %2  ·  %3 of %4")
              .arg(grouped(update.done), grouped(update.total), sizeText(update.bytes), sizeText(update.size)),
          update.total > 0 ? done / total : -1);
      break;
    }
    case Task::deletion:
      panel_->update(QString(), QStringLiteral("File %1 of %2").arg(grouped(update.done), grouped(update.total)),
                     update.total > 0 ? static_cast<double>(update.done) / total : -1);
      break;
  }
  processInput();
}

}  // namespace plimo
