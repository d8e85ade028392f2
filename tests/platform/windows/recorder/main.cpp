// A program for the tests of the launcher: writes its command line and how its window is to be shown into the file
// "record.txt" beside itself.
#include <windows.h>

#include <string>

#include "platform/windows/native_path.h"

int main() {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  const std::wstring folder = path.substr(0, path.rfind(L'\\') + 1);
  STARTUPINFOW startup{};
  ::GetStartupInfoW(&startup);
  const bool minimized = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 && startup.wShowWindow == SW_SHOWMINIMIZED;
  const std::string record = plimo::fromWide(::GetCommandLineW()) + (minimized ? "\nminimized" : "\nnot minimized") +
                             "\n" + plimo::fromWide(path);
  const HANDLE file = ::CreateFileW((folder + L"part").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  ::WriteFile(file, record.data(), static_cast<DWORD>(record.size()), &written, nullptr);
  ::CloseHandle(file);
  return ::MoveFileExW((folder + L"part").c_str(), (folder + L"record.txt").c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
