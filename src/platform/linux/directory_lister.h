// Reads the names in one directory, sorted.
#pragma once

#include <dirent.h>

#include <functional>
#include <memory>
#include <string_view>

#include "platform/shared/listed_names.h"

namespace plimo {

struct CloseDirectory {
  void operator()(DIR* directory) const { ::closedir(directory); }
};
using UniqueDir = std::unique_ptr<DIR, CloseDirectory>;

// Opens a folder by its path relative to the folder open as `parent` (or AT_FDCWD). Null, with errno, on failure.
UniqueDir openDirectory(int parent, const char* path, bool followLink = true);

// Which entries are wanted.
struct ListingFilter {
  bool (*acceptFile)(std::string_view name) = nullptr;  // null: all files
  bool folders = true;
  bool linkedFolders = false;                             // symbolic links to folders too
  std::function<bool(std::string_view name)> skipFolder;  // empty: no folder is left out
};

// Files are regular files and links to them. False on failure, with errno.
bool listDirectory(DIR& directory, const ListingFilter& filter, ListedNames& names);

}  // namespace plimo
