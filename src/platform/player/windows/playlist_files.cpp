#include "platform/player/playlist_files.h"

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/windows_paths/path_rules.h"
#include "platform/windows_paths/wtf8.h"

namespace plimo {

using windows_paths::absolutePath;
using windows_paths::extendedPath;
using windows_paths::parentPath;
using windows_paths::plainPath;

namespace {

std::string currentDirectory() {
  std::wstring path(::GetCurrentDirectoryW(0, nullptr), L'\0');
  path.resize(::GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
  return plainPath(utf16ToWtf8(std::u16string(path.begin(), path.end())));
}

std::optional<std::string> absoluteIn(std::string_view name, const std::string& folder) {
  const std::string current = currentDirectory();
  const auto base = folder.empty() ? current : absolutePath(folder, current);
  return base ? absolutePath(name, *base) : std::nullopt;
}

std::wstring systemPath(const std::string& absolute) {
  const std::u16string units = wtf8ToUtf16(extendedPath(absolute));
  return {units.begin(), units.end()};
}

struct CloseFile {
  using pointer = HANDLE;
  void operator()(HANDLE file) const { ::CloseHandle(file); }
};

}  // namespace

CheckedEntry checkFile(std::string_view name, const std::string& folder) {
  if (name.empty()) return {Playable::missing, {}};
  const auto absolute = absoluteIn(name, folder);
  if (!absolute) return {Playable::notASong, {}};
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (::GetFileAttributesExW(systemPath(*absolute).c_str(), GetFileExInfoStandard, &data) == 0) {
    return {Playable::missing, {}};
  }
  constexpr DWORD notFiles = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
  if ((data.dwFileAttributes & notFiles) != 0) return {Playable::notASong, {}};
  // A link has no size of its own.
  const bool link = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!link && data.nFileSizeLow == 0 && data.nFileSizeHigh == 0) return {Playable::empty, {}};
  return {Playable::yes, *absolute};
}

std::optional<std::string> readPlaylistFile(const std::string& path) {
  const auto absolute = absoluteIn(path, {});
  if (!absolute) return std::nullopt;
  constexpr DWORD allSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE opened = ::CreateFileW(systemPath(*absolute).c_str(), GENERIC_READ, allSharing, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return std::nullopt;
  const std::unique_ptr<HANDLE, CloseFile> file(opened);
  if (::GetFileType(file.get()) != FILE_TYPE_DISK) return std::nullopt;
  std::string text;
  constexpr DWORD pieceSize = 1 << 20;
  const auto piece = std::make_unique<char[]>(pieceSize);
  DWORD count = 0;
  while (::ReadFile(file.get(), piece.get(), pieceSize, &count, nullptr) != 0 && count > 0) {
    text.append(piece.get(), count);
  }
  return text;
}

std::string folderOfPlaylist(const std::string& path) {
  const auto absolute = absoluteIn(path, {});
  return absolute ? parentPath(*absolute) : std::string();
}

}  // namespace plimo
