#include "desktop/sound_library.h"

#include <QEventLoop>
#include <thread>

namespace plimo {

SoundLibrary::SoundLibrary(InputGate& gate, std::function<void()> beforeWaiting)
    : gate_(gate), beforeWaiting_(std::move(beforeWaiting)) {}

void* SoundLibrary::function(const char* name) {
  if (!library_.isLoaded()) load();
  return library_.isLoaded() ? reinterpret_cast<void*>(library_.resolve(name)) : nullptr;
}

void SoundLibrary::load() {
  beforeWaiting_();
  gate_.close();
  QEventLoop loop;
  std::thread loading([this, &loop] {
    // The versions whose functions are the same for this program, the newest first.
    for (const int version : {2, 1}) {
      library_.setFileNameAndVersion(QStringLiteral("mpv"), version);
      if (library_.load()) break;
    }
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  loading.join();
  gate_.reopen();
}

}  // namespace plimo
