// Listing folders, one or a whole tree.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "platform/posix/descriptor.h"
#include "platform/posix/failures.h"
#include "platform/posix/folder_reader.h"
#include "platform/posix/posix_files.h"

namespace plimo {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;

// At a drive's root, a folder of the file system's own.
constexpr std::string_view lostAndFound = "lost+found";

}  // namespace

void PosixFiles::failToList(int error, std::string_view folder) const {
  if (isMissing(error)) fail(missingFolder(folder), folder);
  fail(error == EIO || error == ENXIO || error == ENOMEDIUM ? ErrorNumber::diskNotReady : ErrorNumber::permissionDenied,
       folder);
}

FolderContents PosixFiles::contents(std::string_view folder) {
  FolderReader reader;
  const Descriptor opened(::open(std::string(folder).c_str(), folderFlags));
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

// One walk. Each level keeps its reader from folder to folder, so that a large tree costs few allocations.
class PosixFiles::Walk {
 public:
  Walk(const PosixFiles& files, std::string_view folder, bool (*wanted)(std::string_view name), const FoundFile& found,
       const FoundFile& entered)
      : files_(files), path_(folder), found_(found), entered_(entered) {
    query_.wantedFile = wanted;
  }

  bool begin(int depth) {
    const Descriptor folder(::open(path_.c_str(), folderFlags));
    if (!folder) files_.failToList(errno, path_);
    return visit(folder.number(), 0, depth);
  }

 private:
  // The folder at path_, open at `descriptor`.
  bool visit(int descriptor, std::size_t level, int depth) {
    if (!entered_(path_)) return false;
    if (levels_.size() <= level) levels_.push_back(std::make_unique<FolderReader>());
    FolderReader& here = *levels_[level];
    query_.folders = depth > 0;
    if (!here.read(descriptor, query_)) files_.failToList(errno, path_);

    const std::size_t folderLength = path_.size();
    const auto enter = [&](std::string_view name) {
      path_.resize(folderLength);
      if (!path_.ends_with('/')) path_ += '/';
      path_.append(name);
    };
    for (const std::string_view name : here.files()) {
      enter(name);
      if (!found_(path_)) return false;
    }
    for (const std::string_view name : here.folders()) {
      if (name == lostAndFound && files_.isDriveRoot(std::string_view(path_).substr(0, folderLength))) continue;
      enter(name);
      const std::size_t nameAt = path_.size() - name.size();
      const Descriptor folder(::openat(descriptor, path_.c_str() + nameAt, folderFlags | O_NOFOLLOW));
      if (!folder) {
        if (isMissing(errno)) continue;  // gone, or no folder any more, since the listing
        files_.failToList(errno, path_);
      }
      if (!visit(folder.number(), level + 1, depth - 1)) return false;
    }
    path_.resize(folderLength);
    return true;
  }

  const PosixFiles& files_;
  std::string path_;
  const FoundFile& found_;
  const FoundFile& entered_;
  FolderQuery query_;
  std::vector<std::unique_ptr<FolderReader>> levels_;
};

bool PosixFiles::walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name), const FoundFile& found,
                      const FoundFile& entered) {
  return Walk(*this, folder, wanted, found, entered).begin(depth);
}

}  // namespace plimo
