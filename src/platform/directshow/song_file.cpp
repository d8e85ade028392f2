#include "platform/directshow/song_file.h"

#include <windows.h>

#include "base/utf16.h"
#include "platform/player/song_engine.h"

namespace plimo {

std::wstring widePath(std::string_view path) {
  const std::u16string units = utf16FromUtf8(path);
  std::wstring result(units.begin(), units.end());
  if (result.size() < MAX_PATH || result.starts_with(L"\\\\?\\")) return result;
  for (wchar_t& character : result) {
    if (character == L'/') character = L'\\';
  }
  return result.starts_with(L"\\\\") ? L"\\\\?\\UNC" + result.substr(1) : L"\\\\?\\" + result;
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
