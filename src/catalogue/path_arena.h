// Keeps the paths of songs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/string_arena.h"

namespace plimo {

// A path in two pieces, each shorter than 4 GiB.
class StoredPath {
 public:
  StoredPath() = default;
  StoredPath(std::string_view folder, std::string_view name)
      : folderText_(folder.data()),
        nameText_(name.data()),
        folderSize_(static_cast<std::uint32_t>(folder.size())),
        nameSize_(static_cast<std::uint32_t>(name.size())) {}

  // With the separator at its end; empty where the path has none.
  std::string_view folder() const { return {folderText_, folderSize_}; }
  std::string_view name() const { return {nameText_, nameSize_}; }
  std::string text() const { return std::string(folder()).append(name()); }

 private:
  // Lists of these may be long: two views would take a third more.
  const char* folderText_ = nullptr;
  const char* nameText_ = nullptr;
  std::uint32_t folderSize_ = 0;
  std::uint32_t nameSize_ = 0;
};

inline void append(std::string& target, const StoredPath& path) { target.append(path.folder()).append(path.name()); }

// Copies of paths, good as long as the arena. Songs that stand next to one another in a catalogue mostly lie in the
// same folder: they share its text, most of a path.
class PathArena {
 public:
  StoredPath store(std::string_view path) {
    if (!liesIn(folder_, path)) folder_ = texts_.store(folderOf(path));
    return {folder_, texts_.store(path.substr(folder_.size()))};
  }

 private:
  static bool liesIn(std::string_view folder, std::string_view path) {
    return !folder.empty() && path.starts_with(folder) &&
           path.substr(folder.size()).find(folder.back()) == std::string_view::npos;
  }
  // Any platform's separator ends it: what is taken for a folder must be the path's beginning, and no more.
  static std::string_view folderOf(std::string_view path) {
    std::size_t end = path.size();
    while (end > 0 && path[end - 1] != '/' && path[end - 1] != '\\') --end;
    return path.substr(0, end);
  }

  StringArena texts_;
  std::string_view folder_;  // of the path kept last
};

}  // namespace plimo
