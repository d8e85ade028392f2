// Reads the names in one folder.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/shared/directory_prefetcher.h"
#include "platform/shared/listed_names.h"
#include "platform/windows/error_mapping.h"

namespace plimo {

// Which entries are wanted.
struct ListingFilter {
  bool (*acceptFile)(std::string_view name) = nullptr;  // null: all files
  bool folders = true;
  bool linkedFolders = false;  // folders that are reparse points (junctions, symbolic links and the like), too
  // True for a folder to leave out; empty: none is.
  std::function<bool(std::string_view name)> skipFolder;
};

// Files are files and links to them. The system's error code, 0 for none.
SystemError listFolder(std::string_view folder, const ListingFilter& filter, ListedNames& names);

class WindowsDirectoryReader : public DirectoryReader {
 public:
  // True for a subfolder to leave out. Called on other threads.
  using Skip = std::function<bool(std::string_view folder, std::string_view name)>;

  WindowsDirectoryReader(bool (*acceptFile)(std::string_view name), Skip skip);
  std::shared_ptr<void> read(PrefetchedDirectory& directory) const override;

 private:
  bool (*acceptFile_)(std::string_view name);
  Skip skip_;
};

}  // namespace plimo
