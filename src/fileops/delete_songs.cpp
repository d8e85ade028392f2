#include "fileops/delete_songs.h"

#include "base/errors.h"
#include "base/string_interner.h"
#include "catalogue/song_name.h"

namespace plimo {

SongDeletion::SongDeletion(FileSystemObject& files, const std::string& catalogue,
                           std::span<const std::string_view> names)
    : files_(files), names_(names.size()), paths_(files, catalogue, names, OnTruncation::ignore) {
  files.runInBackground([this] {
    StringInterner folders;
    const char* lastFolder = nullptr;  // neighbours in the catalogue share the string of their folder
    for (const StoredPath& path : paths_.distinct()) {
      if (!isSongFile(path.name)) continue;  // it will not be deleted
      ++extent_.files;
      if (path.folder.data() != lastFolder) folders.add(path.folder);
      lastFolder = path.folder.data();
    }
    extent_.folders = folders.size();
  });
}

void SongDeletion::run(Progress& progress, std::size_t& deleted) const {
  if (names_ == 0) return;
  ProgressUpdate update;
  for (std::size_t name = 0; name < names_; ++name) update.total += paths_.of(name).size();
  ProgressScope scope(progress, Task::deletion);
  for (std::size_t name = 0; name < names_; ++name) {
    for (const StoredPath& path : paths_.of(name)) {
      ++update.done;
      if (!scope.update(update)) return;
      const std::string file = path.text();
      if (!isSongFile(files_.fileName(file))) throw RuntimeError(ErrorNumber::fileNotFound, file);
      files_.deleteFile(file, Force::no);
      ++deleted;
    }
    if (paths_.truncation()) throw *paths_.truncation();
  }
}

}  // namespace plimo
