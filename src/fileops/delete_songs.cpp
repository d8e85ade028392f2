#include "fileops/delete_songs.h"

#include <vector>

#include "base/errors.h"
#include "base/string_arena.h"
#include "base/string_interner.h"
#include "catalogue/song_lookup.h"
#include "catalogue/song_name.h"

namespace plimo {

SongFiles countSongFiles(FileSystemObject& files, const std::string& catalogue,
                         std::span<const std::string_view> names) {
  const SongPaths found(files, catalogue, names, OnTruncation::ignore);
  StringArena texts;
  StringInterner paths;
  StringInterner folders;
  for (std::size_t name = 0; name < names.size(); ++name) {
    for (const StoredPath& path : found.of(name)) {
      const std::string text = path.text();
      if (paths.find(text) != StringInterner::none) continue;
      if (!isSongFile(files.fileName(text)) || !files.fileExists(text)) continue;  // nothing will be deleted
      folders.add(path.folder);
      paths.add(texts.store(text));
    }
  }
  return {paths.size(), folders.size()};
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
