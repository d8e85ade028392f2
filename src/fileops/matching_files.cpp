#include "fileops/matching_files.h"

#include "catalogue/song_name.h"

namespace plimo {

MatchingFiles::MatchingFiles(FileSystemObject& files, const std::string& catalogue,
                             std::span<const std::string_view> names)
    : open_(files, catalogue) {
  const auto join = [&](BrokenEnd end) {
    join_.emplace(
        open_, names, end, [](const CatalogueRecord& record) { return displayName(record.title); },
        [this](const CatalogueRecord& record) { return open_.keep(record.path); });
  };
  try {
    join(BrokenEnd::fails);
  } catch (const RuntimeError& error) {
    brokenEnd_ = error;
    join(BrokenEnd::ignored);
  }
}

}  // namespace plimo
