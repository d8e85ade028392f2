#include "desktop/shell/mpv_loader.h"

#include <QEventLoop>
#include <thread>

namespace plimo {

MpvLoader::MpvLoader(InputBlocker& blocker, std::function<void()> beforeWaiting)
    : blocker_(blocker), beforeWaiting_(std::move(beforeWaiting)) {}

void* MpvLoader::function(const char* name) {
  if (!library_.isLoaded()) load();
  return library_.isLoaded() ? reinterpret_cast<void*>(library_.resolve(name)) : nullptr;
}

void MpvLoader::load() {
  beforeWaiting_();
  blocker_.block();
  QEventLoop loop;
  std::thread loading([this, &loop] {
    // These versions are compatible for this program; the newest is tried first.
    for (const int version : {2, 1}) {
      library_.setFileNameAndVersion(QStringLiteral("mpv"), version);
      if (library_.load()) break;
    }
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  loading.join();
  blocker_.unblock();
}

}  // namespace plimo
