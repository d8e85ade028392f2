#include "fileops/copy_songs.h"

#include "base/errors.h"
#include "fileops/matching_files.h"

namespace plimo {

void copySongs(FileSystemObject& files, Progress& progress, const std::string& catalogue, const CopyRequest& request,
               const std::string& folder, const std::function<void(std::string_view name)>& present) {
  const MatchingFiles found(files, catalogue, request.names);
  ProgressUpdate update;
  for (std::size_t name = 0; name < request.names.size(); ++name) update.total += found.of(name).size();
  // The catalogue's broken end is met behind the first row's files; only they can have made errors be ignored before.
  const bool ignoredByThen = request.firstRowSelected && !found.of(0).empty();
  if (found.truncation() && !ignoredByThen) throw *found.truncation();

  ProgressScope scope(progress, Task::copy);
  for (std::size_t name = 0; name < request.names.size(); ++name) {
    for (const StoredPath& kept : found.of(name)) {
      const std::string path = kept.text();
      ++update.done;
      update.name = files.fileName(path);
      update.bytes = update.size = 0;
      scope.update(update);  // files that turn out not to be copied take their time, too
      if (!files.fileExists(path)) {
        if (update.done == 1) throw RuntimeError(ErrorNumber::fileNotFound, path);
        continue;
      }
      if (!files.folderExists(folder)) {
        if (update.done == 1) throw RuntimeError(ErrorNumber::pathNotFound, folder);
        continue;
      }
      const std::string target = files.join(folder, update.name);
      if (files.fileExists(target)) {
        present(update.name);
        continue;
      }
      try {
        files.copyFile(path, target, false, [&](std::uint64_t copied, std::uint64_t size) {
          update.bytes = copied;
          update.size = size;
          scope.update(update);
        });
      } catch (const RuntimeError&) {  // that copy is missing; the others go on
      }
    }
  }
}

}  // namespace plimo
