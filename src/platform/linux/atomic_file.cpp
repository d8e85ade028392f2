#include "platform/linux/atomic_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <utility>

#include "platform/linux/path_text.h"

namespace plimo {

namespace {

constexpr off_t sendFrom = off_t{4} << 20;  // bytes that are worth sending to the disk ahead of the end

constexpr int mostLinks = 40;  // the kernel's own limit

std::string hiddenName() {
  static std::atomic<unsigned> count{0};
  return ".plimo-" + std::to_string(::getpid()) + "-" + std::to_string(count++) + ".tmp";
}

// The path by which an open file without a name can be linked.
std::string procPath(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

}  // namespace

bool findWriteTarget(std::string_view path, WriteTarget& target) {
  target.path = path;
  for (int links = 0; links <= mostLinks; ++links) {
    if (::lstat(target.path.c_str(), &target.status) != 0) {
      target.exists = false;
      return errno == ENOENT;
    }
    if (!S_ISLNK(target.status.st_mode)) {
      target.exists = true;
      return true;
    }
    std::array<char, PATH_MAX> buffer;
    const ssize_t length = ::readlink(target.path.c_str(), buffer.data(), buffer.size());
    if (length < 0) return false;
    const std::string_view to(buffer.data(), static_cast<std::size_t>(length));
    target.path = to.starts_with('/') ? std::string(to) : joinPath(parentOf(target.path), to);
  }
  errno = ELOOP;
  return false;
}

bool isReadOnly(const std::string& path, const struct stat& status) {
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return true;
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0;
}

AtomicFile::~AtomicFile() {
  if (!hidden_.empty()) ::unlinkat(folder_.number(), hidden_.c_str(), 0);
}

bool AtomicFile::create(const std::string& path) {
  name_ = lastPiece(path);
  std::string folder = parentOf(path);
  if (folder.empty()) folder = ".";
  folder_ = UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // A folder that may not be listed can still be written to.
  if (!folder_ && errno == EACCES) folder_ = UniqueFd(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder_) return false;

  if (way_ == Way::unnamed) {
    file_ = UniqueFd(::openat(folder_.number(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
    if (file_ && ::access(procPath(file_.number()).c_str(), F_OK) == 0) return true;
    if (!file_ && (errno == EACCES || errno == ENOSPC || errno == EDQUOT || errno == EROFS)) return false;
  }
  return createHidden();
}

bool AtomicFile::createHidden() {
  do {
    hidden_ = hiddenName();
    file_ = UniqueFd(::openat(folder_.number(), hidden_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666));
  } while (!file_ && errno == EEXIST);
  if (!file_) hidden_.clear();
  return static_cast<bool>(file_);
}

bool AtomicFile::linkHidden() {
  do {
    hidden_ = hiddenName();
    if (::linkat(AT_FDCWD, procPath(file_.number()).c_str(), folder_.number(), hidden_.c_str(), AT_SYMLINK_FOLLOW) ==
        0) {
      return true;
    }
  } while (errno == EEXIST);
  hidden_.clear();
  return false;
}

bool AtomicFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_.number(), bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
    grew(written);
  }
  return true;
}

void AtomicFile::grew(off_t bytes) {
  unsent_ += bytes;
  if (unsent_ < sendFrom) return;
  // Only a beginning, so that the flush at the end has less to wait for: a failure shows there.
  const int error = errno;
  ::sync_file_range(file_.number(), sent_, unsent_, SYNC_FILE_RANGE_WRITE);
  errno = error;
  sent_ += std::exchange(unsent_, 0);
}

bool AtomicFile::waitForDisk() {
  const off_t awaited = sent_ - sendFrom - there_;
  if (awaited <= 0) return true;
  // A failure that is told here is not told again by the flush. That there is no such waiting on a disk is none.
  if (::sync_file_range(file_.number(), there_, awaited, SYNC_FILE_RANGE_WAIT_BEFORE) != 0 &&
      (errno == EIO || errno == ENOSPC || errno == EDQUOT)) {
    return false;
  }
  there_ += awaited;
  return true;
}

bool AtomicFile::renameReplace() {
  if (::fsync(file_.number()) != 0) return false;
  if (hidden_.empty() && !linkHidden()) return false;
  if (::renameat(folder_.number(), hidden_.c_str(), folder_.number(), name_.c_str()) != 0) return false;
  hidden_.clear();
  syncFolder();
  return true;
}

bool AtomicFile::renameNoReplace() {
  if (::fsync(file_.number()) != 0) return false;
  const int folder = folder_.number();
  if (hidden_.empty()) {
    if (::linkat(AT_FDCWD, procPath(file_.number()).c_str(), folder, name_.c_str(), AT_SYMLINK_FOLLOW) != 0) {
      return false;
    }
  } else if (::renameat2(folder, hidden_.c_str(), folder, name_.c_str(), RENAME_NOREPLACE) == 0) {
    hidden_.clear();
  } else if (errno != EINVAL && errno != ENOSYS) {
    return false;
  } else if (::linkat(folder, hidden_.c_str(), folder, name_.c_str(), 0) != 0) {
    // Neither way is known here; what is left is a look before the renaming.
    if (errno == EEXIST) return false;
    if (::faccessat(folder, name_.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
      errno = EEXIST;
      return false;
    }
    if (::renameat(folder, hidden_.c_str(), folder, name_.c_str()) != 0) return false;
    hidden_.clear();
  }
  syncFolder();
  return true;
}

// The file is whole and in its place by now; a file system that cannot flush a folder is not a failure.
void AtomicFile::syncFolder() { ::fsync(folder_.number()); }

}  // namespace plimo
