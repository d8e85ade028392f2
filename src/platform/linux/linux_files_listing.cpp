// Listing one folder, and walking a tree.
#include <fcntl.h>

#include <cerrno>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "platform/linux/directory_lister.h"
#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"
#include "platform/shared/directory_prefetcher.h"
#include "platform/shared/tree_walk.h"

namespace plimo {

namespace {

// In a drive's root, this folder belongs to the file system and is not shown.
constexpr std::string_view lostAndFound = "lost+found";

// Opens each folder relative to its parent, which stays open meanwhile.
class LinuxDirectoryReader : public DirectoryReader {
 public:
  // True for a subfolder to leave out. Called on other threads.
  using Skip = std::function<bool(std::string_view folder, std::string_view name)>;

  LinuxDirectoryReader(bool (*acceptFile)(std::string_view name), Skip skip)
      : acceptFile_(acceptFile), skip_(std::move(skip)) {}

  std::shared_ptr<void> read(PrefetchedDirectory& directory) const override {
    const bool isRoot = directory.parent == nullptr;
    const int parent = isRoot ? AT_FDCWD : static_cast<const UniqueFd*>(directory.parent.get())->get();
    auto opened =
        std::make_shared<UniqueFd>(openDirectory(parent, directory.path.c_str() + directory.nameOffset, isRoot));
    ListingFilter filter;
    filter.acceptFile = acceptFile_;
    filter.folders = directory.depth > 0;
    filter.skipFolder = [&](std::string_view name) { return skip_(directory.path, name); };
    if (!*opened) {
      directory.openError = static_cast<std::uint32_t>(errno);
    } else if (!listDirectory(opened->get(), filter, *directory.names)) {
      directory.readError = static_cast<std::uint32_t>(errno);
    }
    return opened;
  }

 private:
  bool (*acceptFile_)(std::string_view name);
  Skip skip_;
};

}  // namespace

ErrorNumber LinuxFiles::listingError(int error, std::string_view folder) const {
  if (isNotFound(error)) return missingFolderError(folder);
  const bool notReady = error == EIO || error == ENXIO || error == ENOMEDIUM;
  return notReady ? ErrorNumber::diskNotReady : ErrorNumber::permissionDenied;
}

FolderContents LinuxFiles::contents(std::string_view folder) {
  ListedNames names;
  const UniqueFd directory = openDirectory(AT_FDCWD, std::string(folder).c_str());
  ListingFilter filter;
  filter.linkedFolders = true;
  if (!directory || !listDirectory(directory.get(), filter, names)) throwError(listingError(errno, folder), folder);
  FolderContents contents;
  contents.files.assign(names.files().begin(), names.files().end());
  for (const std::string_view name : names.folders()) {
    if (name != lostAndFound || !drives_.isRoot(folder)) contents.folders.emplace_back(name);
  }
  return contents;
}

bool LinuxFiles::walk(std::string_view folder, int depth, const WalkVisitor& visitor) {
  // A copy of what it needs, because a thread that a disk holds up goes on using it after the walk has ended.
  const auto skip = [drives = drives_](std::string_view parent, std::string_view name) {
    return name == lostAndFound && drives.isRoot(parent);
  };
  DirectoryPrefetcher directories(folder, depth, '/', std::make_shared<LinuxDirectoryReader>(visitor.wanted, skip));
  return walkTree(directories, '/', visitor,
                  {.isNotFound = [](std::uint32_t error) { return isNotFound(static_cast<int>(error)); },
                   .number = [this](std::uint32_t error,
                                    std::string_view path) { return listingError(static_cast<int>(error), path); }});
}

}  // namespace plimo
