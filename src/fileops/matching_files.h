// The files behind a list of songs, as a walk song by song through the catalogue finds them, but read in one go.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/errors.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/path_arena.h"
#include "platform/file_system_object.h"

namespace plimo {

class MatchingFiles {
 public:
  // Reads the catalogue once, to its end (without names too). Throws as FileSystemObject::openForReading does.
  MatchingFiles(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names);

  // The paths of all records that match the name at this place in the list, in record order; good as long as this
  // object.
  std::span<const StoredPath> of(std::size_t name) const { return join_.of(name); }

  // Where the catalogue's last record breaks off: the failure that a walk meets behind the first song's files.
  const std::optional<RuntimeError>& truncation() const { return open_.truncation(); }

 private:
  CatalogueFile open_;
  CatalogueJoin<StoredPath, PathArena> join_;
};

}  // namespace plimo
