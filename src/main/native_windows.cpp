#include <windows.h>
// It comes first: this one needs it.
#include <shellapi.h>

#include <QCoreApplication>
#include <QMetaObject>
#include <cstdio>
#include <utility>

#include "main/native.h"
#include "platform/windows/instance_window.h"
#include "platform/windows/native_path.h"
#include "platform/windows/process_setup.h"
#include "platform/windows/windows_files.h"
#include "platform/windows/windows_launcher.h"

namespace plimo {

namespace {

// A file of this name next to the program makes the program keep its own files there: it is in the portable archive.
constexpr const wchar_t* portableMarker = L"plimo-portable.txt";

// A window program has no console. If it was started from one, what it prints is shown there; output that is redirected
// to a file or a pipe goes there already.
void showOutputInConsole() {
  for (const auto& [handle, stream] : {std::pair(STD_OUTPUT_HANDLE, stdout), std::pair(STD_ERROR_HANDLE, stderr)}) {
    const HANDLE given = GetStdHandle(handle);
    if (given != nullptr && given != INVALID_HANDLE_VALUE && GetFileType(given) != FILE_TYPE_UNKNOWN) continue;
    static const bool attached = AttachConsole(ATTACH_PARENT_PROCESS) != 0;
    if (attached && _wfreopen(L"CONOUT$", L"w", stream) != nullptr) std::setvbuf(stream, nullptr, _IONBF, 0);
  }
}

std::wstring programFolder() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      break;
    }
    path.resize(path.size() * 2);
  }
  return path.substr(0, path.find_last_of(L'\\'));
}

bool isFolder(const std::string& path) {
  const auto status = fileStatus(path);
  return status && status->isFolder();
}

// The last error as the system words it.
std::string lastErrorText() {
  wchar_t* text = nullptr;
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, GetLastError(), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring copy(text != nullptr ? text : L"", length);
  LocalFree(text);
  while (!copy.empty() && (copy.back() == L'\n' || copy.back() == L'\r' || copy.back() == L' ')) copy.pop_back();
  return fromWide(copy);
}

// Makes an absolute folder with its parents.
bool makeFolder(const std::string& path) {
  if (isFolder(path)) return true;
  const std::size_t separator = path.find_last_of('\\');
  if (separator != std::string::npos && separator > 2 && !makeFolder(path.substr(0, separator))) return false;
  return CreateDirectoryW(nativePath(path).c_str(), nullptr) != 0 || isFolder(path);
}

}  // namespace

void prepareProcess() {
  hardenProcess();
  showOutputInConsole();
  // Dark window frames and colours if the user has chosen them for all programs.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "windows:darkmode=2");
}

// The words of main() are in the system's code page, which lacks most characters on older systems.
std::vector<std::string> commandLine(int /*count*/, char** /*words*/) {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) arguments.push_back(fromWide(words[i]));
  LocalFree(words);
  return arguments;
}

std::string fullPath(const std::string& path) { return absolutePath(path).value_or(path); }

std::optional<std::string> absoluteFolder(const std::string& path) {
  std::string folder = fullPath(path);
  if (!isFolder(folder)) return std::nullopt;
  // A drive's root keeps its separator.
  while (folder.size() > 3 && folder.back() == '\\') folder.pop_back();
  return folder;
}

bool enterFolder(const std::string& path, std::string& reason) {
  const std::string folder = absoluteFolder(path).value_or(fullPath(path));
  // The system knows no current directory in the extended form of paths.
  if (makeFolder(folder) && SetCurrentDirectoryW(toWide(folder).c_str()) != 0) return true;
  reason = path + ": " + lastErrorText();
  return false;
}

std::string preferredFolder() {
  const std::wstring folder = programFolder();
  const bool portable = GetFileAttributesW((folder + L'\\' + portableMarker).c_str()) != INVALID_FILE_ATTRIBUTES;
  return portable ? fromWide(folder) : std::string();
}

std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named) {
  if (named.empty()) return std::make_unique<WindowsFiles>();
  std::vector<DriveRoot> drives;
  for (const NamedDrive& drive : named) drives.push_back({drive.letter, drive.type, drive.root});
  return std::make_unique<WindowsFiles>(drives);
}

std::unique_ptr<Launcher> nativeLauncher() { return std::make_unique<WindowsLauncher>(); }

namespace {

class WindowOwnership : public FolderOwnership {
 public:
  Claim claim(const StartMessage& message, std::chrono::milliseconds patience) override {
    window_.received = [this](std::string bytes) {
      // Later, because the sender waits until this returns.
      QMetaObject::invokeMethod(
          &context_, [this, bytes = std::move(bytes)] { take(bytes); }, Qt::QueuedConnection);
    };
    return window_.claim(encoded(message), patience);
  }

 private:
  void take(const std::string& bytes) {
    // A message of another version of the program still asks for the window.
    if (received) received(decodedStartMessage(bytes).value_or(StartMessage{}));
  }

  QObject context_;
  InstanceWindow window_{currentFolder()};
};

}  // namespace

std::unique_ptr<FolderOwnership> nativeFolderOwnership() { return std::make_unique<WindowOwnership>(); }

namespace {

// The end of the session arrives as messages to the windows, which the toolkit handles. What remains are the events of
// a console that the program was started from.
class ConsoleWatch {
 public:
  explicit ConsoleWatch(std::function<void()> requested) : requested_(std::move(requested)) {
    current = this;
    SetConsoleCtrlHandler(&handle, TRUE);
  }
  ConsoleWatch(const ConsoleWatch&) = delete;
  ConsoleWatch& operator=(const ConsoleWatch&) = delete;
  ~ConsoleWatch() {
    SetConsoleCtrlHandler(&handle, FALSE);
    current = nullptr;
  }

 private:
  // Called on a thread of the system's.
  static BOOL WINAPI handle(DWORD event) {
    QMetaObject::invokeMethod(
        &current->context_, [] { current->requested_(); }, Qt::QueuedConnection);
    // For other events the system ends the process when this returns, or after some seconds.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
    return TRUE;
  }

  static inline ConsoleWatch* current = nullptr;
  std::function<void()> requested_;
  QObject context_;
};

}  // namespace

std::shared_ptr<void> onTerminationRequest(std::function<void()> requested) {
  return std::make_shared<ConsoleWatch>(std::move(requested));
}

}  // namespace plimo
