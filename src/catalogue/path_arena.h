// Compact storage for the paths of songs.
#pragma once

#include <string>
#include <string_view>

#include "base/string_arena.h"

namespace plimo {

// A view of a path in two parts.
struct StoredPath {
  std::string text() const { return std::string(folder).append(name); }

  std::string_view folder;  // with the trailing separator; empty if the path has no separator
  std::string_view name;
};

inline void append(std::string& target, const StoredPath& path) { target.append(path.folder).append(path.name); }

// Owns copies of paths; the views are valid as long as the arena. Consecutive paths in the same folder share its string
// (prefix compression): neighbours in a catalogue mostly do.
class PathArena {
 public:
  StoredPath store(std::string_view path) {
    if (!isInFolder(path, folder_)) folder_ = texts_.store(folderOf(path));
    return {folder_, texts_.store(path.substr(folder_.size()))};
  }

 private:
  static bool isInFolder(std::string_view path, std::string_view folder) {
    return !folder.empty() && path.starts_with(folder) &&
           path.substr(folder.size()).find(folder.back()) == std::string_view::npos;
  }
  // Accepts the separators of all platforms: any split gives a correct path, only sharing depends on it.
  static std::string_view folderOf(std::string_view path) {
    std::size_t end = path.size();
    while (end > 0 && path[end - 1] != '/' && path[end - 1] != '\\') --end;
    return path.substr(0, end);
  }

  StringArena texts_;
  std::string_view folder_;  // of the last stored path
};

}  // namespace plimo
