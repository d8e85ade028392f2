#include "fileops/delete_songs.h"

#include "fileops/matching_files.h"
#include "fileops/work_panel.h"

namespace plimo {

void deleteSongs(FileSystemObject& files, Progress& pump, const std::string& catalogue,
                 std::span<const std::string_view> names) {
  if (names.empty()) return;
  const MatchingFiles found(files, catalogue, names);
  std::size_t all = 0;
  for (std::size_t name = 0; name < names.size(); ++name) all += found.of(name).size();
  WorkPanel panel(pump);
  std::size_t done = 0;
  for (std::size_t name = 0; name < names.size(); ++name) {
    for (const StoredPath& path : found.of(name)) {
      panel.deleted(++done, all);
      files.deleteFile(path.text(), Force::no);
    }
    if (found.truncation()) throw *found.truncation();
  }
}

}  // namespace plimo
