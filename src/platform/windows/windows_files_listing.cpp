// Listing one folder, and walking a tree.
#include <windows.h>

#include <memory>
#include <utility>

#include "base/text.h"
#include "platform/shared/directory_prefetcher.h"
#include "platform/windows/directory_reader.h"
#include "platform/windows/error_mapping.h"
#include "platform/windows/native_path.h"
#include "platform/windows/windows_files.h"

namespace plimo {

namespace {

// In the root of a drive, these folders belong to the system.
bool isSystemName(std::string_view name) {
  return compareFolded(name, "System Volume Information") == 0 || compareFolded(name, "$RECYCLE.BIN") == 0;
}

}  // namespace

ErrorNumber WindowsFiles::listingError(std::uint32_t error, std::string_view folder) const {
  if (isNotReady(error)) return ErrorNumber::diskNotReady;
  return isNotFound(error) ? missingFolderError(folder) : ErrorNumber::permissionDenied;
}

FolderContents WindowsFiles::contents(std::string_view folder) {
  ListedNames names;
  ListingFilter filter;
  filter.linkedFolders = true;
  filter.skipFolder = [&](std::string_view name) { return isSystemName(name) && isRootFolder(folder); };
  if (const SystemError error = listFolder(folder, filter, names)) throwError(listingError(error, folder), folder);
  FolderContents contents;
  contents.files.assign(names.files().begin(), names.files().end());
  contents.folders.assign(names.folders().begin(), names.folders().end());
  return contents;
}

bool WindowsFiles::walk(std::string_view folder, int depth, const WalkVisitor& visitor) {
  // A copy of what it needs, because a thread that a disk holds up goes on using it after the walk has ended.
  const auto drives = fixedDrives_ ? std::make_shared<WindowsFiles>(*fixedDrives_) : std::make_shared<WindowsFiles>();
  const auto skip = [drives](std::string_view parent, std::string_view name) {
    return isSystemName(name) && drives->isRootFolder(parent);
  };
  DirectoryPrefetcher directories(folder, depth, '\\', std::make_shared<WindowsDirectoryReader>(visitor.wanted, skip));
  std::string path;
  bool first = true;
  while (const PrefetchedDirectory* directory = directories.next(visitor.waiting)) {
    const bool isSubfolder = !std::exchange(first, false);
    // A subfolder may have been removed, or replaced by a file, since its parent was listed.
    if (isSubfolder && isNotFound(directory->openError)) continue;
    if (visitor.entered && !visitor.entered(directory->path)) return false;
    if (directory->openError != 0) {
      const RuntimeError error(listingError(directory->openError, directory->path), directory->path);
      if (!visitor.unreadable || !visitor.unreadable(error)) throw error;
      continue;
    }
    path = directory->path;
    if (!path.ends_with('\\')) path += '\\';
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
