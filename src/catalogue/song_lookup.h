// From songs as the lists show them to their files.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue_join.h"
#include "catalogue/path_arena.h"
#include "platform/file_system_object.h"

namespace plimo {

// The paths of all records that match a list of names. A record matches a name when its title before the first "."
// equals it exactly; a title without a "." matches none.
class SongPaths {
 public:
  // Reads the catalogue once, to its end; with no names, not at all. Throws as opening it does, and 62 where a record
  // breaks off.
  SongPaths(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names);

  // The paths for the name at this place in the list, in record order; good as long as this object.
  std::span<const StoredPath> of(std::size_t name) const {
    return join_ ? join_->of(name) : std::span<const StoredPath>();
  }

 private:
  std::optional<CatalogueJoin<StoredPath, PathArena>> join_;
};

// The path of the first record that matches the name; reads no further. Throws as SongPaths does.
std::optional<std::string> firstPath(FileSystemObject& files, const std::string& catalogue, std::string_view name);

}  // namespace plimo
