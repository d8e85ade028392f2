// Lets the desktop's window live while a handler of the program is at work.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>

#include "desktop/input_gate.h"
#include "platform/progress.h"

namespace plimo {

class ProgressPanel;

class DesktopPump : public Progress {
 public:
  explicit DesktopPump(InputGate& gate);
  ~DesktopPump() override;

  // Called before each painting: what has changed so far is to be seen. Set once.
  std::function<void()> beforePaint;
  // The window over which the panel stands; null for none yet.
  std::function<QWidget*()> window;

  void pause(std::chrono::milliseconds time) override;
  void scanBegins() override;
  bool scanned(std::size_t songs, std::string_view folder) override;
  void scanEnds() override;
  void copied(const CopyProgress& progress) override;
  void deleted(std::size_t file, std::size_t files) override;
  void workEnds() override;

 private:
  void begin(const QString& title, bool cancellable);
  void end();
  // True at most ten times a second: the panel is to tell how far it is. Looks at what goes on meanwhile.
  bool due();
  void look();

  InputGate& gate_;
  QPointer<ProgressPanel> panel_;
  QPointer<QWidget> keyboard_;  // had it before the panel came
  QElapsedTimer since_;
  qint64 lastLook_ = 0;
  qint64 lastPaint_ = 0;
  QString title_;
  bool cancellable_ = false;
  bool working_ = false;
};

}  // namespace plimo
