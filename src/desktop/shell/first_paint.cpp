#include "desktop/shell/first_paint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace plimo {

namespace {

class PaintWatch : public QObject {
 public:
  PaintWatch(QWidget& window, std::function<void()> action) : QObject(&window), action_(std::move(action)) {
    window.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    watched->removeEventFilter(this);
    // What has been painted is on the screen when the events of this turn have been processed.
    QTimer::singleShot(0, this, [this] {
      action_();
      deleteLater();
    });
    return false;
  }

 private:
  std::function<void()> action_;
};

}  // namespace

void afterFirstPaint(QWidget& window, std::function<void()> action) { new PaintWatch(window, std::move(action)); }

}  // namespace plimo
