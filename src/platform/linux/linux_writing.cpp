// Replacing, deleting and copying files.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/atomic_file.h"
#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/unique_fd.h"

namespace plimo {

namespace {

constexpr std::size_t bufferSize = 256 * 1024;
constexpr std::size_t copyStep = 1024 * 1024;  // bytes between two reports of a copy's progress
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

class PosixReplacement : public FileReplacement {
 public:
  explicit PosixReplacement(std::string_view path) : path_(path) {}

  bool create(const std::string& target) { return file_.create(target); }

  // The old file's permissions and, where that is allowed, its owner.
  void keep(const struct stat& old, mode_t more) {
    if (::fchown(file_.descriptor(), old.st_uid, old.st_gid) != 0) errno = 0;  // the owner is then who writes
    ::fchmod(file_.descriptor(), (old.st_mode & permissionBits) | more);
  }

  void write(std::string_view bytes) override {
    if (buffer_.size() + bytes.size() > bufferSize) flush();
    if (bytes.size() > bufferSize) {
      if (!file_.write(bytes)) failToWrite();
    } else {
      buffer_.append(bytes);
    }
  }

  void commit() override {
    flush();
    if (!file_.renameReplace()) failToWrite();
  }

 private:
  void flush() {
    if (!file_.write(buffer_)) failToWrite();
    buffer_.clear();
  }

  [[noreturn]] void failToWrite() { fail(writeFailure(errno, ErrorNumber::pathFileAccess), path_); }

  std::string path_;
  AtomicFile file_;
  std::string buffer_;
};

struct Copy {
  int from;
  AtomicFile& to;
  std::uint64_t size;
  const std::function<void(std::uint64_t copied, std::uint64_t size)>& progress;
  std::uint64_t copied = 0;

  // False where the disk fails.
  bool tell(std::uint64_t more) {
    if (!to.waitForDisk()) return false;
    copied += more;
    if (progress) progress(copied, size);
    return true;
  }
};

enum class CopyResult { done, readFailed, writeFailed };

CopyResult copyByHand(Copy& copy) {
  std::string buffer(copyStep, '\0');
  for (;;) {
    const ssize_t got = ::read(copy.from, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return CopyResult::readFailed;
    if (got == 0) return CopyResult::done;
    if (!copy.to.write({buffer.data(), static_cast<std::size_t>(got)})) return CopyResult::writeFailed;
    if (!copy.tell(static_cast<std::uint64_t>(got))) return CopyResult::writeFailed;
  }
}

// The kernel copies where it can (on some file systems without moving a byte); by hand goes on where it stops.
CopyResult copyContent(Copy& copy) {
  for (;;) {
    const ssize_t got = ::copy_file_range(copy.from, nullptr, copy.to.descriptor(), nullptr, copyStep, 0);
    if (got < 0 && writeFailure(errno, ErrorNumber::permissionDenied) == ErrorNumber::diskFull) {
      return CopyResult::writeFailed;
    }
    if (got <= 0) return copyByHand(copy);
    copy.to.grew(got);
    if (!copy.tell(static_cast<std::uint64_t>(got))) return CopyResult::writeFailed;
  }
}

}  // namespace

std::unique_ptr<FileReplacement> LinuxFiles::replaceFile(std::string_view path, Force force) {
  WriteTarget target;
  if (!findWriteTarget(path, target)) {
    fail(errno == ENOTDIR ? missingFolder(path) : writeFailure(errno, ErrorNumber::pathFileAccess), path);
  }
  if (target.exists && !S_ISREG(target.status.st_mode)) fail(ErrorNumber::pathFileAccess, path);
  if (target.exists && force == Force::no && isReadOnly(target.path, target.status)) {
    fail(ErrorNumber::pathFileAccess, path);
  }
  auto replacement = std::make_unique<PosixReplacement>(path);
  if (!replacement->create(target.path)) {
    const int error = errno;
    fail(isMissing(error) ? missingFolder(path) : writeFailure(error, ErrorNumber::pathFileAccess), path);
  }
  if (target.exists) replacement->keep(target.status, force == Force::yes ? S_IWUSR : 0);
  return replacement;
}

void LinuxFiles::deleteFile(std::string_view path, Force force) {
  if (!fileExists(path)) fail(ErrorNumber::fileNotFound, path);
  const std::string file(path);
  struct stat status {};
  if (::lstat(file.c_str(), &status) != 0) fail(ErrorNumber::fileNotFound, path);
  // A link is deleted, not what it points to; that one's permissions say nothing.
  if (force == Force::no && !S_ISLNK(status.st_mode) && isReadOnly(file, status)) {
    fail(ErrorNumber::permissionDenied, path);
  }
  if (::unlink(file.c_str()) != 0) {
    fail(isMissing(errno) ? ErrorNumber::fileNotFound : ErrorNumber::permissionDenied, path);
  }
}

void LinuxFiles::copyFile(std::string_view from, std::string_view to, bool overwrite,
                          const std::function<void(std::uint64_t copied, std::uint64_t size)>& progress) {
  if (!fileExists(from)) fail(ErrorNumber::fileNotFound, from);
  if (sameFile(from, to)) fail(ErrorNumber::permissionDenied, to);
  const UniqueFd source(::open(std::string(from).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!source || ::fstat(source.number(), &status) != 0) fail(ErrorNumber::permissionDenied, from);

  WriteTarget target;
  if (!findWriteTarget(to, target)) {
    fail(errno == ENOTDIR ? ErrorNumber::pathNotFound : writeFailure(errno, ErrorNumber::permissionDenied), to);
  }
  if (target.exists && !S_ISREG(target.status.st_mode)) fail(ErrorNumber::permissionDenied, to);
  if (target.exists && !overwrite) fail(ErrorNumber::fileExists, to);
  if (target.exists && isReadOnly(target.path, target.status)) fail(ErrorNumber::permissionDenied, to);

  AtomicFile copy;
  if (!copy.create(target.path)) {
    fail(isMissing(errno) ? ErrorNumber::pathNotFound : writeFailure(errno, ErrorNumber::permissionDenied), to);
  }
  Copy work{source.number(), copy, static_cast<std::uint64_t>(status.st_size), progress};
  const CopyResult result = copyContent(work);
  if (result == CopyResult::readFailed) fail(ErrorNumber::permissionDenied, from);
  if (result == CopyResult::writeFailed) fail(writeFailure(errno, ErrorNumber::permissionDenied), to);
  // Not every file system keeps both; that is no reason not to copy.
  ::fchmod(copy.descriptor(), status.st_mode & permissionBits);
  const timespec times[] = {status.st_atim, status.st_mtim};
  ::futimens(copy.descriptor(), times);
  if (!(overwrite ? copy.renameReplace() : copy.renameNoReplace())) {
    fail(errno == EEXIST ? ErrorNumber::fileExists : writeFailure(errno, ErrorNumber::permissionDenied), to);
  }
}

}  // namespace plimo
