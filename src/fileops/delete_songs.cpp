#include "fileops/delete_songs.h"

#include <vector>

#include "base/errors.h"
#include "base/string_interner.h"
#include "catalogue/song_lookup.h"
#include "catalogue/song_name.h"

namespace plimo {

SongFiles countSongFiles(FileSystemObject& files, const std::string& catalogue,
                         std::span<const std::string_view> names) {
  const SongPaths found(files, catalogue, names, OnTruncation::ignore);
  StringInterner uniqueNames(names.size());
  StringInterner folders;
  std::size_t count = 0;
  for (std::size_t name = 0; name < names.size(); ++name) {
    if (uniqueNames.find(names[name]) != StringInterner::none) continue;
    uniqueNames.add(names[name]);
    for (const StoredPath& path : found.of(name)) {
      if (!isSongFile(path.name)) continue;  // it will not be deleted
      ++count;
      folders.add(path.folder);
    }
  }
  return {count, folders.size()};
}

void deleteSongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                 std::span<const std::string_view> names, std::size_t& deleted) {
  if (names.empty()) return;
  const SongPaths found(files, catalogue, names, OnTruncation::ignore);
  ProgressUpdate update;
  for (std::size_t name = 0; name < names.size(); ++name) update.total += found.of(name).size();
  ProgressScope scope(progress, Task::deletion);
  for (std::size_t name = 0; name < names.size(); ++name) {
    for (const StoredPath& path : found.of(name)) {
      ++update.done;
      if (!scope.update(update)) return;
      const std::string file = path.text();
      if (!isSongFile(files.fileName(file))) throw RuntimeError(ErrorNumber::fileNotFound, file);
      files.deleteFile(file, Force::no);
      ++deleted;
    }
    if (found.truncation()) throw *found.truncation();
  }
}

}  // namespace plimo
