#include "fileops/matching_files.h"

#include "catalogue/song_name.h"

namespace plimo {

MatchingFiles::MatchingFiles(FileSystemObject& files, const std::string& catalogue,
                             std::span<const std::string_view> names)
    : open_(files, catalogue),
      join_(
          open_, names, OnTruncation::ignore, [](const CatalogueRecord& record) { return displayName(record.title); },
          [](const CatalogueRecord& record, PathArena& texts) { return texts.store(record.path); }) {}

}  // namespace plimo
