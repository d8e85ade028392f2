// Shows the progress panel over the window while a handler of the program runs.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

#include "desktop/shell/input_blocker.h"
#include "platform/progress.h"

namespace plimo {

class ProgressPanel;

class DesktopProgress : public Progress {
 public:
  explicit DesktopProgress(InputBlocker& blocker);
  ~DesktopProgress() override;

  // Called at the beginning, to paint pending changes of the windows. Set once.
  std::function<void()> beforePaint;
  // Returns the window that the panel covers; null if there is none yet.
  std::function<QWidget*()> window;

  void begin(Task task) override;
  void update(const ProgressUpdate& update) override;
  void end() override;
  bool cancelled() const override;

  // Called again and again while a disk does not answer, with the time since it was asked. Processes input; without a
  // task, it shows a panel that the user can cancel. False if the user does not want to wait any longer; the rest of
  // the command then waits for half a second at most.
  bool waitForDisk(std::chrono::milliseconds since);
  // Called after the last waitForDisk.
  void diskAnswered();

  // Runs work on a thread of its own and returns when it has ended; throws what it throws. Meanwhile the window is
  // painted. What the user does waits in the queue; if the work takes long, a panel without Cancel is shown, and input
  // is ignored. Work inside such work runs at once.
  void runInBackground(const std::function<void()>& work);

  // Cancels the task and all that follow: the program is to end.
  void cancelAll() { ending_ = true; }
  bool ending() const { return ending_; }

 private:
  // True at most ten times a second, if the panel is to be updated. Also processes input, more often than that.
  bool due();
  void processInput();
  // The lists are not to be flushed in the middle of a handler that has emptied them to fill them again: they would
  // lose their scroll positions.
  enum class Flush { no, yes };
  void cover(Flush flush);
  void uncover();

  InputBlocker& blocker_;
  QPointer<ProgressPanel> panel_;
  QPointer<QWidget> focusBefore_;  // had it before the panel was shown
  QElapsedTimer since_;
  QElapsedTimer sinceGivenUp_;  // a disk; invalid if none was
  qint64 lastInput_ = 0;
  qint64 lastPaint_ = 0;
  Task task_ = Task::scan;
  bool running_ = false;  // a task
  bool waiting_ = false;  // without one
  bool working_ = false;  // on another thread, without either
  bool ending_ = false;
};

}  // namespace plimo
