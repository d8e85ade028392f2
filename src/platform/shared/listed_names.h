// The names in one folder, files and folders separately, sorted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// Reusable, so that reading many folders takes few allocations. The names are valid until the next `clear`.
class ListedNames {
 public:
  void clear();
  void addFile(std::string_view name) { add(files_, name); }
  void addFolder(std::string_view name) { add(folders_, name); }
  // To be called after the last name has been added.
  void sort();

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
