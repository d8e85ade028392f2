// Finds the files of songs by the names shown in the lists.
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

// The paths of all records that match a list of names. A record matches a name if its title before the first "."
// equals it exactly; a title without a "." matches no name.
class SongPaths {
 public:
  // Reads the catalogue once, to its end; without names, not at all. Throws as opening it does, and 62 if its last
  // record is truncated and that is to fail.
  SongPaths(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names,
            OnTruncation truncation = OnTruncation::fail);

  // The paths for the name at this index in the list, in record order; valid as long as this object.
  std::span<const StoredPath> of(std::size_t name) const {
    return join_ ? join_->of(name) : std::span<const StoredPath>();
  }
  // The paths for all names, each record once.
  std::span<const StoredPath> distinct() const { return join_ ? join_->distinct() : std::span<const StoredPath>(); }
  // Set if the catalogue's last record is truncated and that was ignored.
  const std::optional<RuntimeError>& truncation() const { return truncation_; }

 private:
  std::optional<CatalogueJoin<StoredPath, PathArena>> join_;
  std::optional<RuntimeError> truncation_;
};

// The path of the first record that matches the name; nullopt if there is none. Throws as SongPaths does.
std::optional<std::string> firstPath(FileSystemObject& files, const std::string& catalogue, std::string_view name);

}  // namespace plimo
