// How long the window is deaf: the time between two moments at which the message loop looks for what is new.
#pragma once

#include <QObject>
#include <cstddef>
#include <functional>

class QWidget;

namespace plimo::bench {

// A turn begins when the loop has something to do and ends when it looks for more, in a loop within a loop too: a
// handler that lets the window live in its midst is cut into turns by that. Waiting for something to happen is no turn.
// For the thread of the window.
class TurnWatch : public QObject {
 public:
  TurnWatch();

  // Seconds. The longest of each kind; they may be those of two turns.
  struct Turn {
    double wall = 0;
    double processor = 0;  // what this thread has worked in it
  };

  // Forgets what was; a turn begins here.
  void restart();
  // Since the restart, the present turn so far included.
  Turn longest();

  // Called for each widget that is about to be painted.
  std::function<void(const QWidget& widget)> painting;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void begin();
  void end();

  Turn longest_;
  Turn began_;
  bool waiting_ = false;
};

}  // namespace plimo::bench
