// Reads the names in one directory, sorted.
#pragma once

#include <functional>
#include <string_view>

#include "platform/linux/unique_fd.h"
#include "platform/shared/listed_names.h"

namespace plimo {

// Opens a folder by its path relative to the folder open as `parent` (or AT_FDCWD). Empty, with errno, on failure.
UniqueFd openDirectory(int parent, const char* path, bool followLink = true);

// Which entries are wanted.
struct ListingFilter {
  bool (*acceptFile)(std::string_view name) = nullptr;  // null: all files
  bool folders = true;
  bool linkedFolders = false;                             // symbolic links to folders too
  std::function<bool(std::string_view name)> skipFolder;  // empty: no folder is left out
};

// Reads on from the position of the descriptor. Files are regular files and links to them. False on failure, with
// errno.
bool listDirectory(int directory, const ListingFilter& filter, ListedNames& names);

}  // namespace plimo
