#include "platform/linux/atomic_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "platform/linux/path_text.h"
#include "platform/linux/temporary_files.h"

namespace plimo {

namespace {

constexpr off_t writebackBatch = off_t{4} << 20;  // bytes

constexpr std::size_t copyBuffer = 256 * 1024;  // bytes

constexpr int maxSymlinks = 40;  // as in the kernel

// The path by which an unnamed file can be linked.
std::string procPath(int fd) { return "/proc/self/fd/" + std::to_string(fd); }

// True for the errors of linkat(2) on a file system without hard links.
bool cannotLink(int error) { return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK; }

// The folder of a file, with symbolic links resolved; empty if there is none.
std::string resolvedFolder(const std::string& path) {
  const std::string folder = parentPath(path);
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(folder.empty() ? "." : folder.c_str(), nullptr),
                                                             &std::free);
  return resolved ? resolved.get() : std::string();
}

}  // namespace

bool resolveWriteTarget(std::string_view path, WriteTarget& target) {
  target.path = path;
  for (int i = 0; i <= maxSymlinks; ++i) {
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
    const std::string_view link(buffer.data(), static_cast<std::size_t>(length));
    target.path = link.starts_with('/') ? std::string(link) : joinPath(parentPath(target.path), link);
  }
  errno = ELOOP;
  return false;
}

bool resolveOwnTarget(std::string_view path, WriteTarget& target) {
  struct stat status {};
  const std::string own(path);
  if (::lstat(own.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return resolveWriteTarget(path, target);
  if (resolveWriteTarget(path, target)) {
    const std::string folder = resolvedFolder(target.path);
    if (!folder.empty() && folderContains(resolvedFolder(own), folder)) return true;
  }
  target = {own, false, {}};
  return true;
}

bool isReadOnly(const std::string& path, const struct stat& status) {
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return true;
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0;
}

AtomicFile::~AtomicFile() {
  if (!temporaryName_.empty()) ::unlinkat(folder_.get(), temporaryName_.c_str(), 0);
}

bool AtomicFile::create(const std::string& path) {
  name_ = baseName(path);
  std::string folder = parentPath(path);
  if (folder.empty()) folder = ".";
  folder_ = UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Files can be created in a folder without read permission.
  if (!folder_ && errno == EACCES) folder_ = UniqueFd(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder_) return false;

  if (mode_ == Mode::unnamed) {
    file_ = UniqueFd(::openat(folder_.get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
    if (file_ && ::access(procPath(file_.get()).c_str(), F_OK) == 0) return true;
    if (!file_ && (errno == EACCES || errno == ENOSPC || errno == EDQUOT || errno == EROFS)) return false;
  }
  return createHidden();
}

bool AtomicFile::createHidden() {
  removeLeftoversIn(folder_.get());
  for (;;) {
    temporaryName_ = makeTemporaryName();
    file_ = UniqueFd(::openat(folder_.get(), temporaryName_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666));
    if (!file_ && errno == EEXIST) continue;
    if (!file_) {
      temporaryName_.clear();
      return false;
    }
    lockTemporary(file_.get());
    struct stat status {};
    // Until it was locked, another process could take it for a leftover.
    if (::fstat(file_.get(), &status) != 0 || status.st_nlink > 0) return true;
  }
}

bool AtomicFile::linkHidden() {
  removeLeftoversIn(folder_.get());
  lockTemporary(file_.get());
  do {
    temporaryName_ = makeTemporaryName();
    if (::linkat(AT_FDCWD, procPath(file_.get()).c_str(), folder_.get(), temporaryName_.c_str(), AT_SYMLINK_FOLLOW) ==
        0) {
      return true;
    }
  } while (errno == EEXIST);
  temporaryName_.clear();
  return false;
}

bool AtomicFile::copyToHidden() {
  const UniqueFd unnamed = std::move(file_);
  struct stat status {};
  if (::fstat(unnamed.get(), &status) != 0 || !createHidden()) return false;
  size_ = submitted_ = 0;
  std::string buffer(copyBuffer, '\0');
  for (off_t offset = 0;;) {
    const ssize_t count = ::pread(unnamed.get(), buffer.data(), buffer.size(), offset);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) break;
    if (!write({buffer.data(), static_cast<std::size_t>(count)})) return false;
    offset += count;
  }
  // Errors are ignored, as they are when the unnamed file gets these.
  if (::fchown(fd(), status.st_uid, status.st_gid) != 0) errno = 0;
  ::fchmod(fd(), status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO));
  const timespec times[] = {status.st_atim, status.st_mtim};
  ::futimens(fd(), times);
  return ::fsync(fd()) == 0;
}

bool AtomicFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_.get(), bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
    if (!addAppended(written)) return false;
  }
  return true;
}

bool AtomicFile::addAppended(off_t bytes) {
  size_ += bytes;
  if (size_ - submitted_ < writebackBatch) return true;
  // Starts writeback of this batch, then waits for the batches before it. The kernel reports a write error only once,
  // here or at the final flush. Other errors mean that the file system does not support this call.
  ::sync_file_range(fd(), submitted_, size_ - submitted_, SYNC_FILE_RANGE_WRITE);
  const off_t previous = std::exchange(submitted_, size_);
  return previous == 0 || ::sync_file_range(fd(), 0, previous, SYNC_FILE_RANGE_WAIT_BEFORE) == 0 ||
         (errno != EIO && errno != ENOSPC && errno != EDQUOT);
}

bool AtomicFile::renameReplace() {
  if (::fsync(file_.get()) != 0) return false;
  if (temporaryName_.empty() && !linkHidden() && !(cannotLink(errno) && copyToHidden())) return false;
  if (::renameat(folder_.get(), temporaryName_.c_str(), folder_.get(), name_.c_str()) != 0) return false;
  temporaryName_.clear();
  syncFolder();
  return true;
}

bool AtomicFile::renameNoReplace() {
  if (::fsync(file_.get()) != 0) return false;
  const int folder = folder_.get();
  if (temporaryName_.empty()) {
    if (::linkat(AT_FDCWD, procPath(file_.get()).c_str(), folder, name_.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      syncFolder();
      return true;
    }
    if (!cannotLink(errno) || !copyToHidden()) return false;
  }
  if (::renameat2(folder, temporaryName_.c_str(), folder, name_.c_str(), RENAME_NOREPLACE) == 0) {
    temporaryName_.clear();
  } else if (errno != EINVAL && errno != ENOSYS) {
    return false;
  } else if (::linkat(folder, temporaryName_.c_str(), folder, name_.c_str(), 0) != 0) {
    // The file system supports neither: check, then rename, which is not atomic.
    if (errno == EEXIST) return false;
    if (::faccessat(folder, name_.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
      errno = EEXIST;
      return false;
    }
    if (::renameat(folder, temporaryName_.c_str(), folder, name_.c_str()) != 0) return false;
    temporaryName_.clear();
  }
  syncFolder();
  return true;
}

// The file is complete under its name by now, so it is no failure if the file system cannot flush a folder.
void AtomicFile::syncFolder() { ::fsync(folder_.get()); }

}  // namespace plimo
