// Listing one folder, and walking a tree.
#include <fcntl.h>

#include <cerrno>
#include <utility>

#include "platform/linux/directory_lister.h"
#include "platform/linux/directory_prefetcher.h"
#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"

namespace plimo {

namespace {

// In a drive's root, this folder belongs to the file system and is not shown.
constexpr std::string_view lostAndFound = "lost+found";

}  // namespace

ErrorNumber LinuxFiles::listingError(int error, std::string_view folder) const {
  if (isNotFound(error)) return missingFolderError(folder);
  const bool notReady = error == EIO || error == ENXIO || error == ENOMEDIUM;
  return notReady ? ErrorNumber::diskNotReady : ErrorNumber::permissionDenied;
}

FolderContents LinuxFiles::contents(std::string_view folder) {
  DirectoryLister lister;
  const UniqueFd directory = openDirectory(AT_FDCWD, std::string(folder).c_str());
  ListingFilter filter;
  filter.linkedFolders = true;
  if (!directory || !lister.list(directory.get(), filter)) throwError(listingError(errno, folder), folder);
  FolderContents contents;
  contents.files.assign(lister.files().begin(), lister.files().end());
  for (const std::string_view name : lister.folders()) {
    if (name != lostAndFound || !drives_.isRoot(folder)) contents.folders.emplace_back(name);
  }
  return contents;
}

bool LinuxFiles::walk(std::string_view folder, int depth, const WalkVisitor& visitor) {
  // A copy of what it needs, because a thread that a disk holds up goes on using it after the walk has ended.
  const auto skip = [drives = drives_](std::string_view parent, std::string_view name) {
    return name == lostAndFound && drives.isRoot(parent);
  };
  DirectoryPrefetcher directories(folder, depth, visitor.wanted, skip);
  std::string path;
  bool first = true;
  while (const DirectoryPrefetcher::Directory* directory = directories.next(visitor.waiting)) {
    const bool isSubfolder = !std::exchange(first, false);
    if (directory->openError != 0) {
      // A subfolder may have been removed, or replaced by a file, since its parent was listed.
      if (isSubfolder && isNotFound(directory->openError)) continue;
    }
    if (visitor.entered && !visitor.entered(directory->path)) return false;
    if (const int failure = directory->openError != 0 ? directory->openError : directory->readError) {
      const RuntimeError error(listingError(failure, directory->path), directory->path);
      if (!visitor.unreadable || !visitor.unreadable(error)) throw error;
      continue;
    }
    path = directory->path;
    if (!path.ends_with('/')) path += '/';
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
