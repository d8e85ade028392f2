#include <QSocketNotifier>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "main/native.h"
#include "platform/linux/heap.h"
#include "platform/linux/instance_socket.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/linux_launcher.h"
#include "platform/linux/termination_signals.h"

namespace plimo {

void prepareProcess() { keepFreedMemory(); }

std::vector<std::string> commandLine(int count, char** words) { return {words, words + count}; }

std::string fullPath(const std::string& path) {
  std::error_code failed;
  const std::filesystem::path absolute = std::filesystem::absolute(path, failed);
  return failed ? path : absolute.string();
}

std::optional<std::string> absoluteFolder(const std::string& path) {
  std::error_code failed;
  if (!std::filesystem::is_directory(path, failed)) return std::nullopt;
  const std::filesystem::path folder = std::filesystem::absolute(path, failed).lexically_normal();
  if (failed) return std::nullopt;
  return folder.has_filename() || folder == folder.root_path() ? folder.string() : folder.parent_path().string();
}

bool enterFolder(const std::string& path, std::string& reason) {
  std::error_code failed;
  std::filesystem::create_directories(path, failed);
  std::filesystem::current_path(path, failed);
  if (failed) reason = path + ": " + failed.message();
  return !failed;
}

// An installed program has a data folder, and leaves nothing in the folder that it is started from. One that was only
// built keeps its files in the current folder.
std::string preferredFolder() {
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  const std::filesystem::path prefix = program.parent_path().parent_path();
  if (failed || !std::filesystem::exists(prefix / "share/applications/plimo.desktop", failed)) return {};
  const auto absolute = [](const char* name) {
    const char* value = std::getenv(name);
    return std::filesystem::path(value != nullptr && value[0] == '/' ? value : "");
  };
  const std::filesystem::path data = absolute("XDG_DATA_HOME");
  if (!data.empty()) return data / "plimo";
  const std::filesystem::path home = absolute("HOME");
  return home.empty() ? std::string() : (home / ".local/share/plimo").string();
}

std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named) {
  if (named.empty()) return std::make_unique<LinuxFiles>();
  std::vector<DriveRoot> drives;
  for (const NamedDrive& drive : named) drives.push_back({drive.letter, drive.type, drive.root});
  return std::make_unique<LinuxFiles>(drives);
}

std::unique_ptr<Launcher> nativeLauncher() { return std::make_unique<LinuxLauncher>(); }

namespace {

class SocketOwnership : public FolderOwnership {
 public:
  Claim claim(const StartMessage& message, std::chrono::milliseconds patience) override {
    const Claim result = socket_.claim(encoded(message), patience);
    if (socket_.fd() >= 0) {
      notifier_.emplace(socket_.fd(), QSocketNotifier::Read);
      QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] { take(); });
    }
    return result;
  }

 private:
  void take() {
    const auto bytes = socket_.take();
    // A message of another version of the program still asks for the window.
    if (bytes && received) received(decodedStartMessage(*bytes).value_or(StartMessage{}));
  }

  InstanceSocket socket_{"."};
  std::optional<QSocketNotifier> notifier_;
};

}  // namespace

std::unique_ptr<FolderOwnership> nativeFolderOwnership() { return std::make_unique<SocketOwnership>(); }

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
