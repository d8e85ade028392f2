// Paths as the system takes them, and what it says of the files there.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/windows/unique_handle.h"
#include "platform/windows_paths/path_rules.h"

namespace plimo {

using windows_paths::absolutePath;
using windows_paths::baseName;
using windows_paths::endsInSeparator;
using windows_paths::extendedPath;
using windows_paths::folderContains;
using windows_paths::isAbsolutePath;
using windows_paths::isAllowedName;
using windows_paths::isRootPath;
using windows_paths::joinPath;
using windows_paths::parentPath;
using windows_paths::plainPath;

// Characters of the system, which are UTF-16 units.
std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

// The process's current directory; empty if it cannot be determined.
std::string currentFolder();
// absolutePath, relative to the current directory.
std::optional<std::string> absolutePath(std::string_view path);
// The extended form of the absolute path, for any call of the system. Of what is no path, a text that the system
// refuses as an invalid name.
std::wstring nativePath(std::string_view path);

struct FileStatus {
  DWORD attributes = 0;
  bool isLink = false;  // a symbolic link or a junction, not a placeholder or the like
  FILETIME created{};
  FILETIME accessed{};
  FILETIME written{};
  std::uint64_t size = 0;

  bool isFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool isReadOnly() const { return (attributes & FILE_ATTRIBUTE_READONLY) != 0; }
};

// Of the link itself, if it is one. Nullopt on failure, with the thread's last error. A file that ends in a separator
// is not found.
std::optional<FileStatus> linkStatus(std::string_view path);
// Of what it leads to.
std::optional<FileStatus> fileStatus(std::string_view path);
std::optional<FileStatus> statusOf(HANDLE file);

// Opens a file or a folder, sharing it with everyone.
UniqueHandle openShared(std::string_view path, DWORD access, DWORD flags = 0);

// The absolute path of an open file, with links resolved; empty on failure.
std::string finalPath(HANDLE file);

}  // namespace plimo
