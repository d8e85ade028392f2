#include "fileops/delete_songs.h"

#include "fileops/matching_files.h"

namespace plimo {

void deleteSongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                 std::span<const std::string_view> names) {
  if (names.empty()) return;
  const MatchingFiles found(files, catalogue, names);
  ProgressUpdate update;
  for (std::size_t name = 0; name < names.size(); ++name) update.total += found.of(name).size();
  ProgressScope scope(progress, Task::deletion);
  for (std::size_t name = 0; name < names.size(); ++name) {
    for (const StoredPath& path : found.of(name)) {
      ++update.done;
      scope.update(update);
      files.deleteFile(path.text(), Force::no);
    }
    if (found.truncation()) throw *found.truncation();
  }
}

}  // namespace plimo
