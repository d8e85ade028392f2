#include "catalogue/song_lookup.h"

namespace plimo {

SongPaths::SongPaths(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names) {
  if (names.empty()) return;
  open_.emplace(files, catalogue);
  join_.emplace(
      *open_, names, BrokenEnd::fails, [](const CatalogueRecord& record) { return displayName(record.title); },
      [this](const CatalogueRecord& record) { return open_->keep(record.path); });
}

std::optional<std::string> firstPath(FileSystemObject& files, const std::string& catalogue, std::string_view name) {
  OpenCatalogue open(files, catalogue);
  std::optional<std::string> path;
  open.read(BrokenEnd::fails, [&](const CatalogueRecord& record) {
    if (displayName(record.title) == name) path = record.path;
    return !path;
  });
  return path;
}

}  // namespace plimo
