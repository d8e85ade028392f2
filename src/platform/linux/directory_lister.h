// Reads the names in one directory, sorted.
#pragma once

#include <dirent.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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
  bool linkedFolders = false;  // symbolic links to folders too
};

// Reusable, so that reading many directories takes few allocations. The names are valid until the next `list`.
class DirectoryLister {
 public:
  // Files are regular files and links to them. False on failure, with errno.
  bool list(DIR& directory, const ListingFilter& filter);

  // Each sorted by the case-folded name, equal ones by bytes.
  const std::vector<std::string_view>& files() const { return files_.sorted; }
  const std::vector<std::string_view>& folders() const { return folders_.sorted; }

 private:
  struct Name {
    std::size_t offset;  // of the name, in text_
    std::size_t length;
    std::size_t key;  // offset of its case-folded form, in text_
    std::size_t keyLength;
  };
  struct Names {
    std::vector<Name> found;
    std::vector<std::string_view> sorted;
  };

  void add(Names& names, std::string_view name);
  void sort(Names& names) const;

  std::string text_;  // names and sort keys, concatenated
  Names files_;
  Names folders_;
};

}  // namespace plimo
