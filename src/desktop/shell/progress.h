// Shows the progress panel over the window while a handler of the program runs.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
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

  // Called before each painting: what has changed so far is to be seen. Set once.
  std::function<void()> beforePaint;
  // The window over which the panel stands; null for none yet.
  std::function<QWidget*()> window;

  void begin(Task task) override;
  void update(const ProgressUpdate& update) override;
  void end() override;
  bool cancelled() const override;

 private:
  // True at most ten times a second: the panel is to tell how far it is. Looks at what goes on meanwhile.
  bool due();
  void processInput();

  InputBlocker& blocker_;
  QPointer<ProgressPanel> panel_;
  QPointer<QWidget> keyboard_;  // had it before the panel came
  QElapsedTimer since_;
  qint64 lastLook_ = 0;
  qint64 lastPaint_ = 0;
  Task task_ = Task::scan;
};

}  // namespace plimo
