#include "platform/directshow/song_file.h"

#include <windows.h>

#include "platform/player/song_engine.h"
#include "platform/windows_paths/path_rules.h"
#include "platform/windows_paths/wtf8.h"

namespace plimo {

namespace {

std::wstring wide(std::string_view text) {
  const std::u16string units = wtf8ToUtf16(text);
  return {units.begin(), units.end()};
}

// False for a name that the system would change: a long one, a device's, one that ends in a dot or a blank.
bool isTakenAsItIs(const std::wstring& path) {
  wchar_t full[MAX_PATH];
  return path.size() < MAX_PATH && ::GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr) == path.size() &&
         path == full;
}

}  // namespace

std::wstring widePath(std::string_view path) {
  std::wstring result = wide(path);
  return isTakenAsItIs(result) ? result : wide(windows_paths::extendedPath(path));
}

std::string problemOfFile(const std::wstring& path) {
  const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file != INVALID_HANDLE_VALUE) {
    const bool isFile = ::GetFileType(file) == FILE_TYPE_DISK;
    ::CloseHandle(file);
    return isFile ? "" : "it is not a song";
  }
  switch (::GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
      return "the file is gone";
    case ERROR_SHARING_VIOLATION:
      return "another program is using it";
    default:
      return cannotBePlayed;
  }
}

}  // namespace plimo
