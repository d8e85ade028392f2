// Listing one folder, and walking a tree.
#include <windows.h>

#include <memory>

#include "base/text.h"
#include "platform/shared/directory_prefetcher.h"
#include "platform/shared/tree_walk.h"
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
  return walkTree(directories, '\\', visitor,
                  {.isNotFound = isNotFound,
                   .number = [this](std::uint32_t error, std::string_view path) { return listingError(error, path); }});
}

}  // namespace plimo
