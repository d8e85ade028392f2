// Reads a folder's names, sorted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// What is wanted of a folder.
struct FolderQuery {
  bool (*wantedFile)(std::string_view name) = nullptr;  // null: all
  bool folders = true;
  bool linkedFolders = false;  // symbolic links to folders too
};

// The names stay until the next `read`.
class DirectoryLister {
 public:
  // Reads the folder open at `descriptor` from where it stands. Files are regular files and links to them. False on
  // failure, with errno.
  bool read(int descriptor, const FolderQuery& query);

  const std::vector<std::string_view>& files() const { return files_.sorted; }
  const std::vector<std::string_view>& folders() const { return folders_.sorted; }

 private:
  struct Name {
    std::size_t offset;  // of the name, in text_
    std::size_t length;
    std::size_t key;  // of its folded form, in text_
    std::size_t keyLength;
  };
  struct Names {
    std::vector<Name> found;
    std::vector<std::string_view> sorted;
  };

  void add(Names& names, std::string_view name);
  void sort(Names& names) const;

  std::string text_;  // names and sort keys, one behind the other
  Names files_;
  Names folders_;
};

}  // namespace plimo
