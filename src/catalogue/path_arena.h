// Keeps the paths of songs.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "base/text_arena.h"

namespace plimo {

// A path in two pieces.
struct KeptPath {
  const std::string_view* folder;  // with the separator at its end
  std::string_view name;

  std::string text() const { return std::string(*folder).append(name); }
};

inline void append(std::string& target, const KeptPath& path) { target.append(*path.folder).append(path.name); }

// Copies of paths, good as long as the arena. Songs that stand next to one another in a catalogue mostly lie in the
// same folder, whose text they share: a third of the memory does.
class PathArena {
 public:
  KeptPath keep(std::string_view path) {
    if (folders_.empty() || !liesIn(folders_.back(), path)) folders_.push_back(texts_.keep(folderOf(path)));
    const std::string_view& folder = folders_.back();
    return {&folder, texts_.keep(path.substr(folder.size()))};
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

  TextArena texts_;
  std::deque<std::string_view> folders_;  // they never move
};

}  // namespace plimo
