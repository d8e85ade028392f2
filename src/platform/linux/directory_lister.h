// Reads the names in one directory, sorted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/unique_fd.h"

namespace plimo {

// Opens a folder by its path relative to the folder open as `parent` (or AT_FDCWD). Empty, with errno, on failure.
UniqueFd openDirectory(int parent, const char* path, bool followLink = true);

// Which entries are wanted.
struct ListingFilter {
  bool (*acceptFile)(std::string_view name) = nullptr;  // null: all files
  bool folders = true;
  bool linkedFolders = false;  // symbolic links to folders too
};

// Reusable, so that reading many directories takes few allocations. The names are valid until the next `list`.
class DirectoryLister {
 public:
  // Reads on from the position of the descriptor. Files are regular files and links to them. False on failure, with
  // errno.
  bool list(int directory, const ListingFilter& filter);

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

  void addEntry(int directory, const char* name, unsigned char type, const ListingFilter& filter);
  void add(Names& names, std::string_view name);
  void sort(Names& names) const;

  std::string text_;  // names and sort keys, concatenated
  Names files_;
  Names folders_;
};

}  // namespace plimo
