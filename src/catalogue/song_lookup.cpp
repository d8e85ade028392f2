#include "catalogue/song_lookup.h"

#include "catalogue/song_name.h"

namespace plimo {

SongPaths::SongPaths(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names,
                     OnTruncation truncation) {
  if (names.empty()) return;
  CatalogueFile open(files, catalogue);
  join_.emplace(
      open, names, truncation, [](const CatalogueRecord& record) { return displayName(record.title); },
      [](const CatalogueRecord& record, PathArena& texts) { return texts.store(record.path); });
  truncation_ = open.truncation();
}

std::optional<std::string> firstPath(FileSystemObject& files, const std::string& catalogue, std::string_view name) {
  CatalogueFile open(files, catalogue);
  std::optional<std::string> path;
  open.read([&](const CatalogueRecord& record) {
    if (displayName(record.title) == name) path = record.path;
    return !path;
  });
  return path;
}

}  // namespace plimo
