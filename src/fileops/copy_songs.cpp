#include "fileops/copy_songs.h"

#include "base/errors.h"
#include "fileops/matching_files.h"
#include "fileops/work_panel.h"

namespace plimo {

void copySongs(FileSystemObject& files, Progress& pump, const std::string& catalogue, const CopyRequest& order,
               const std::string& folder, const std::function<void(std::string_view name)>& present) {
  const MatchingFiles found(files, catalogue, order.names);
  CopyProgress progress;
  for (std::size_t name = 0; name < order.names.size(); ++name) progress.files += found.of(name).size();
  // The catalogue's broken end is met behind the first row's files; only they can have made errors be ignored before.
  const bool ignoredByThen = order.firstRowSelected && !found.of(0).empty();
  if (found.truncation() && !ignoredByThen) throw *found.truncation();

  WorkPanel panel(pump);
  for (std::size_t name = 0; name < order.names.size(); ++name) {
    for (const StoredPath& kept : found.of(name)) {
      const std::string path = kept.text();
      ++progress.file;
      progress.name = files.fileName(path);
      progress.bytes = progress.size = 0;
      panel.copied(progress);  // whatever becomes of it: many files that are not copied take their time, too
      if (!files.fileExists(path)) {
        if (progress.file == 1) throw RuntimeError(ErrorNumber::fileNotFound, path);
        continue;
      }
      if (!files.folderExists(folder)) {
        if (progress.file == 1) throw RuntimeError(ErrorNumber::pathNotFound, folder);
        continue;
      }
      const std::string target = files.join(folder, progress.name);
      if (files.fileExists(target)) {
        present(progress.name);
        continue;
      }
      try {
        files.copyFile(path, target, false, [&](std::uint64_t copied, std::uint64_t size) {
          progress.bytes = copied;
          progress.size = size;
          panel.copied(progress);
        });
      } catch (const RuntimeError&) {  // that copy is missing; the others go on
      }
    }
  }
}

}  // namespace plimo
