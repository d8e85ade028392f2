#include "platform/shared/tree_walk.h"

#include <string>
#include <utility>

namespace plimo {

bool walkTree(DirectoryPrefetcher& directories, char separator, const WalkVisitor& visitor,
              const ListingErrors& errors) {
  std::string path;
  bool first = true;
  while (const PrefetchedDirectory* directory = directories.next(visitor.waiting)) {
    const bool isSubfolder = !std::exchange(first, false);
    // A subfolder may have been removed, or replaced by a file, since its parent was listed.
    if (isSubfolder && directory->openError != 0 && errors.isNotFound(directory->openError)) continue;
    if (visitor.entered && !visitor.entered(directory->path)) return false;
    if (const std::uint32_t failure = directory->openError != 0 ? directory->openError : directory->readError) {
      const RuntimeError error(errors.number(failure, directory->path), directory->path);
      if (!visitor.unreadable || !visitor.unreadable(error)) throw error;
      continue;
    }
    path = directory->path;
    if (!path.ends_with(separator)) path += separator;
    const std::size_t folderLength = path.size();
    for (const std::string_view name : directory->names->files()) {
      path.resize(folderLength);
      path += name;
      if (!visitor.found(path)) return false;
    }
  }
  return !directories.gaveUp();
}

}  // namespace plimo
