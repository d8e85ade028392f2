// Replacing, deleting and copying files.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/atomic_file.h"
#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/path_text.h"
#include "platform/linux/temporary_files.h"
#include "platform/linux/unique_fd.h"
#include "platform/shared/buffered_replacement.h"

namespace plimo {

namespace {

constexpr std::size_t copyChunk = 1024 * 1024;  // bytes between two progress reports of a copy
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

class LinuxFileReplacement : public BufferedReplacement {
 public:
  explicit LinuxFileReplacement(std::string_view path) : path_(path) {}

  bool create(const std::string& target) { return file_.create(target); }

  // Takes over the old file's permissions, plus `extraMode`, and its owner if the kernel allows that.
  void copyOwnerAndMode(const struct stat& old, mode_t extraMode) {
    if (::fchown(file_.fd(), old.st_uid, old.st_gid) != 0) errno = 0;  // else the writing user owns the file
    ::fchmod(file_.fd(), (old.st_mode & permissionBits) | extraMode);
  }

 private:
  bool writeThrough(std::string_view bytes) override { return file_.write(bytes); }
  bool replace() override { return file_.renameReplace(); }
  [[noreturn]] void throwWriteError() override { throwError(mapWriteError(errno, ErrorNumber::pathFileAccess), path_); }

  std::string path_;
  AtomicFile file_;
};

struct CopyJob {
  int source;
  AtomicFile& target;
  std::uint64_t size;
  const CopyProgress& progress;
  std::uint64_t copied = 0;

  // False if the copy is cancelled.
  bool report(ssize_t bytes) {
    copied += static_cast<std::uint64_t>(bytes);
    return !progress || progress(copied, size);
  }
};

enum class CopyResult { done, cancelled, readFailed, writeFailed };

CopyResult copyByReadWrite(CopyJob& job) {
  std::string buffer(copyChunk, '\0');
  for (;;) {
    const ssize_t count = ::read(job.source, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return CopyResult::readFailed;
    if (count == 0) return CopyResult::done;
    if (!job.target.write({buffer.data(), static_cast<std::size_t>(count)})) return CopyResult::writeFailed;
    if (!job.report(count)) return CopyResult::cancelled;
  }
}

// copy_file_range(2) shares the blocks on file systems that can (reflink). If the kernel cannot copy between these two
// files, read and write continue from the current offsets.
CopyResult copyContent(CopyJob& job) {
  for (;;) {
    const ssize_t count = ::copy_file_range(job.source, nullptr, job.target.fd(), nullptr, copyChunk, 0);
    if (count < 0 && mapWriteError(errno, ErrorNumber::permissionDenied) == ErrorNumber::diskFull) {
      return CopyResult::writeFailed;
    }
    if (count <= 0) return copyByReadWrite(job);
    if (!job.target.addAppended(count)) return CopyResult::writeFailed;
    if (!job.report(count)) return CopyResult::cancelled;
  }
}

// The target of a copy; throws as copyFile does.
WriteTarget copyTarget(std::string_view to, bool overwrite, Force force = Force::no) {
  WriteTarget target;
  if (!resolveWriteTarget(to, target)) {
    throwError(errno == ENOTDIR ? ErrorNumber::pathNotFound : mapWriteError(errno, ErrorNumber::permissionDenied), to);
  }
  if (target.exists && !S_ISREG(target.status.st_mode)) throwError(ErrorNumber::permissionDenied, to);
  if (target.exists && !overwrite) throwError(ErrorNumber::fileExists, to);
  if (target.exists && force == Force::no && isReadOnly(target.path, target.status)) {
    throwError(ErrorNumber::permissionDenied, to);
  }
  return target;
}

}  // namespace

std::unique_ptr<FileReplacement> LinuxFiles::replaceFile(std::string_view path, Force force) {
  WriteTarget target;
  if (!(force == Force::own ? resolveOwnTarget(path, target) : resolveWriteTarget(path, target))) {
    throwError(errno == ENOTDIR ? missingFolderError(path) : mapWriteError(errno, ErrorNumber::pathFileAccess), path);
  }
  if (target.exists && !S_ISREG(target.status.st_mode)) throwError(ErrorNumber::pathFileAccess, path);
  if (target.exists && force == Force::no && isReadOnly(target.path, target.status)) {
    throwError(ErrorNumber::pathFileAccess, path);
  }
  auto replacement = std::make_unique<LinuxFileReplacement>(path);
  if (!replacement->create(target.path)) {
    const int error = errno;
    throwError(isNotFound(error) ? missingFolderError(path) : mapWriteError(error, ErrorNumber::pathFileAccess), path);
  }
  if (target.exists) replacement->copyOwnerAndMode(target.status, force == Force::no ? 0 : S_IWUSR);
  return replacement;
}

void LinuxFiles::deleteFile(std::string_view path, Force force) {
  if (!fileExists(path)) throwError(ErrorNumber::fileNotFound, path);
  const std::string file(path);
  struct stat status {};
  if (::lstat(file.c_str(), &status) != 0) throwError(ErrorNumber::fileNotFound, path);
  // Deletes a link itself, so the permissions of its target do not matter.
  if (force == Force::no && !S_ISLNK(status.st_mode) && isReadOnly(file, status)) {
    throwError(ErrorNumber::permissionDenied, path);
  }
  if (::unlink(file.c_str()) != 0) {
    throwError(isNotFound(errno) ? ErrorNumber::fileNotFound : ErrorNumber::permissionDenied, path);
  }
}

bool LinuxFiles::copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) {
  if (!fileExists(from)) throwError(ErrorNumber::fileNotFound, from);
  if (sameFile(from, to)) throwError(ErrorNumber::permissionDenied, to);
  const UniqueFd source(::open(std::string(from).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!source || ::fstat(source.get(), &status) != 0) throwError(ErrorNumber::permissionDenied, from);
  if (!S_ISREG(status.st_mode)) throwError(ErrorNumber::fileNotFound, from);  // replaced since it was looked at
  const WriteTarget target = copyTarget(to, overwrite);
  AtomicFile copy;
  if (!copy.create(target.path)) {
    throwError(isNotFound(errno) ? ErrorNumber::pathNotFound : mapWriteError(errno, ErrorNumber::permissionDenied), to);
  }
  CopyJob job{source.get(), copy, static_cast<std::uint64_t>(status.st_size), progress};
  const CopyResult result = copyContent(job);
  if (result == CopyResult::cancelled) return false;
  if (result == CopyResult::readFailed) throwError(ErrorNumber::permissionDenied, from);
  if (result == CopyResult::writeFailed) throwError(mapWriteError(errno, ErrorNumber::permissionDenied), to);
  // Errors are ignored: some file systems store neither permissions nor times.
  ::fchmod(copy.fd(), status.st_mode & permissionBits);
  const timespec times[] = {status.st_atim, status.st_mtim};
  ::futimens(copy.fd(), times);
  if (!(overwrite ? copy.renameReplace() : copy.renameNoReplace())) {
    if (errno == EEXIST) throwError(ErrorNumber::fileExists, to);
    throwError(isNotFound(errno) ? ErrorNumber::pathNotFound : mapWriteError(errno, ErrorNumber::permissionDenied), to);
  }
  return true;
}

void LinuxFiles::removeLeftovers(std::string_view folder) {
  const UniqueFd directory(::open(std::string(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory) removeLeftoversIn(directory.get());
}

bool LinuxFiles::moveFile(std::string_view from, std::string_view to, Force force) {
  if (!fileExists(from)) throwError(ErrorNumber::fileNotFound, from);
  if (sameFile(from, to)) throwError(ErrorNumber::permissionDenied, to);
  const std::string source(from);
  struct stat status {};
  if (::lstat(source.c_str(), &status) != 0) throwError(ErrorNumber::fileNotFound, from);
  if (!S_ISREG(status.st_mode)) return false;  // a link is not moved: its content is copied
  const WriteTarget target = copyTarget(to, true, force);
  if (force == Force::no) {
    if (::faccessat(AT_FDCWD, source.c_str(), R_OK, AT_EACCESS) != 0) throwError(ErrorNumber::permissionDenied, from);
    if (isReadOnly(source, status)) return false;  // it is copied, and its deletion fails
  }
  if (::rename(source.c_str(), target.path.c_str()) == 0) {
    const UniqueFd folder(::open(parentPath(target.path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder) ::fsync(folder.get());  // best effort: some file systems cannot flush a folder
    return true;
  }
  if (errno == EXDEV || errno == EINVAL) return false;
  if (!isNotFound(errno)) throwError(mapWriteError(errno, ErrorNumber::permissionDenied), to);
  if (!fileExists(from)) throwError(ErrorNumber::fileNotFound, from);
  throwError(ErrorNumber::pathNotFound, to);
}

}  // namespace plimo
