// Listing folders, one or a whole tree.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/directory_lister.h"
#include "platform/linux/directory_prefetcher.h"
#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/unique_fd.h"

namespace plimo {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;

// At a drive's root, a folder of the file system's own.
constexpr std::string_view lostAndFound = "lost+found";

}  // namespace

void LinuxFiles::failToList(int error, std::string_view folder) const {
  if (isMissing(error)) fail(missingFolder(folder), folder);
  fail(error == EIO || error == ENXIO || error == ENOMEDIUM ? ErrorNumber::diskNotReady : ErrorNumber::permissionDenied,
       folder);
}

FolderContents LinuxFiles::contents(std::string_view folder) {
  DirectoryLister reader;
  const UniqueFd opened(::open(std::string(folder).c_str(), folderFlags));
  FolderQuery query;
  query.linkedFolders = true;
  if (!opened || !reader.read(opened.number(), query)) failToList(errno, folder);
  FolderContents contents;
  contents.files.assign(reader.files().begin(), reader.files().end());
  for (const std::string_view name : reader.folders()) {
    if (name != lostAndFound || !isDriveRoot(folder)) contents.folders.emplace_back(name);
  }
  return contents;
}

bool LinuxFiles::walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name),
                      const FileVisitor& found, const FileVisitor& entered) {
  const auto passed = [this](std::string_view inside, std::string_view name) {
    return name == lostAndFound && isDriveRoot(inside);
  };
  DirectoryPrefetcher folders(folder, depth, wanted, passed);
  std::string path;
  bool first = true;
  while (const DirectoryPrefetcher::Folder* here = folders.next()) {
    const bool below = !std::exchange(first, false);
    if (here->openError != 0) {
      if (below && isMissing(here->openError)) continue;  // gone, or no folder any more, since the listing
      failToList(here->openError, here->path);
    }
    if (!entered(here->path)) return false;
    if (here->readError != 0) failToList(here->readError, here->path);
    path = here->path;
    if (!path.ends_with('/')) path += '/';
    const std::size_t folderLength = path.size();
    for (const std::string_view name : here->names->files()) {
      path.resize(folderLength);
      path += name;
      if (!found(path)) return false;
    }
  }
  return true;
}

}  // namespace plimo
