#include "catalogue/song_lookup.h"

#include "catalogue/song_name.h"

namespace plimo {

SongPaths::SongPaths(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names,
                     OnTruncation truncation) {
  if (names.empty()) return;
  CatalogueFile file(files, catalogue);
  join_.emplace(
      file, names, truncation, [](const CatalogueRecord& record) { return displayName(record.title); },
      [](const CatalogueRecord& record, PathArena& texts) { return texts.store(record.path); });
  truncation_ = file.truncation();
}

std::optional<std::string> firstPath(FileSystemObject& files, const std::string& catalogue, std::string_view name) {
  CatalogueFile file(files, catalogue);
  std::optional<std::string> path;
  file.read([&](const CatalogueRecord& record) {
    if (displayName(record.title) == name) path = record.path;
    return !path;
  });
  return path;
}

}  // namespace plimo
