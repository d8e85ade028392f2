#include "fileops/matching_files.h"

#include "catalogue/song_name.h"

namespace plimo {

MatchingFiles::MatchingFiles(FileSystemObject& files, const std::string& catalogue,
                             std::span<const std::string_view> names)
    : open_(files, catalogue),
      join_(
          open_, names, BrokenEnd::ignored, [](const CatalogueRecord& record) { return displayName(record.title); },
          [](const CatalogueRecord& record, PathArena& texts) { return texts.keep(record.path); }) {}

}  // namespace plimo
