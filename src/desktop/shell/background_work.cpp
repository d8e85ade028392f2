#include "desktop/shell/background_work.h"

#include <QEventLoop>
#include <thread>

namespace plimo {

void runInBackground(InputBlocker& blocker, const std::function<void()>& work) {
  blocker.block();
  QEventLoop loop;
  std::thread thread([&work, &loop] {
    work();
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  thread.join();
  blocker.unblock();
}

}  // namespace plimo
