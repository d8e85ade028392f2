#include <QSocketNotifier>
#include <utility>

#include "main/native.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/linux_launcher.h"
#include "platform/linux/termination_signals.h"

namespace plimo {

std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named) {
  if (named.empty()) return std::make_unique<LinuxFiles>();
  std::vector<DriveRoot> drives;
  for (const NamedDrive& drive : named) drives.push_back({drive.letter, drive.type, drive.root});
  return std::make_unique<LinuxFiles>(drives);
}

std::unique_ptr<Launcher> nativeLauncher() { return std::make_unique<LinuxLauncher>(); }

namespace {

struct SignalWatch {
  explicit SignalWatch(std::function<void()> requested) : notifier(signals.fd(), QSocketNotifier::Read) {
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [this, requested = std::move(requested)] {
      if (signals.take()) requested();
    });
    // One of the player's audio outputs would otherwise replace the handlers of the signals.
    qputenv("SDL_NO_SIGNAL_HANDLERS", "1");
  }

  TerminationSignals signals;
  QSocketNotifier notifier;
};

}  // namespace

std::shared_ptr<void> onTerminationRequest(std::function<void()> requested) {
  return std::make_shared<SignalWatch>(std::move(requested));
}

}  // namespace plimo
