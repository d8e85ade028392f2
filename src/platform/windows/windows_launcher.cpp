#include "platform/windows/windows_launcher.h"

#include <windows.h>

#include <optional>

#include "base/errors.h"
#include "platform/windows/error_mapping.h"
#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"

namespace plimo {

namespace {

// Without the prefix of the extended form as long as the path allows it: some programs do not expect it in their own.
std::wstring applicationName(const std::string& program) {
  const std::wstring plain = toWide(absolutePath(program).value_or(std::string()));
  return plain.size() < MAX_PATH ? plain : nativePath(program);
}

}  // namespace

// The application is named by its absolute path besides the command line: from the command line alone the system would
// guess where the program's name ends, and search for it.
void WindowsLauncher::start(const std::string& program, const std::string& argument) {
  // A relative path would mean a program in the current folder.
  const auto status = isAbsolutePath(program) ? fileStatus(program) : std::nullopt;
  if (!status || status->isFolder()) throwError(ErrorNumber::fileNotFound, program);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWMINIMIZED;
  std::wstring commandLine = toWide(program + " " + argument);  // CreateProcess may change it
  PROCESS_INFORMATION information{};
  if (!::CreateProcessW(applicationName(program).c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                        CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &information)) {
    throwError(isNotFound(::GetLastError()) ? ErrorNumber::fileNotFound : ErrorNumber::permissionDenied, program);
  }
  const UniqueHandle process(information.hProcess);
  const UniqueHandle thread(information.hThread);
}

}  // namespace plimo
