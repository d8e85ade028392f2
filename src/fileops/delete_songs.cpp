#include "fileops/delete_songs.h"

#include "base/errors.h"
#include "catalogue/song_lookup.h"
#include "catalogue/song_name.h"

namespace plimo {

void deleteSongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                 std::span<const std::string_view> names) {
  if (names.empty()) return;
  const SongPaths found(files, catalogue, names, OnTruncation::ignore);
  ProgressUpdate update;
  for (std::size_t name = 0; name < names.size(); ++name) update.total += found.of(name).size();
  ProgressScope scope(progress, Task::deletion);
  for (std::size_t name = 0; name < names.size(); ++name) {
    for (const StoredPath& path : found.of(name)) {
      ++update.done;
      scope.update(update);
      const std::string file = path.text();
      if (!isSongFile(files.fileName(file))) throw RuntimeError(ErrorNumber::fileNotFound, file);
      files.deleteFile(file, Force::no);
    }
    if (found.truncation()) throw *found.truncation();
  }
}

}  // namespace plimo
