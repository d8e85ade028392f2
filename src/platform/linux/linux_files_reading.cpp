// Reading files.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <utility>

#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/mapped_file.h"
#include "platform/linux/unique_fd.h"

namespace plimo {

namespace {

class CopiedView : public FileView {
 public:
  explicit CopiedView(std::string content) : content_(std::move(content)) {}
  std::string_view bytes() const override { return content_; }

 private:
  std::string content_;
};

[[noreturn]] void throwAccessError(std::string_view path) { throwError(ErrorNumber::pathFileAccess, path); }

// True if another program has written to the file, or truncated it, since it had this status.
bool isChanged(int fd, const struct stat& before) {
  struct stat now {};
  return ::fstat(fd, &now) != 0 || now.st_size != before.st_size || now.st_mtim.tv_sec != before.st_mtim.tv_sec ||
         now.st_mtim.tv_nsec != before.st_mtim.tv_nsec;
}

class MappedView : public FileView {
 public:
  MappedView(std::unique_ptr<MappedFile> mapping, UniqueFd file, const struct stat& status, std::string_view path)
      : mapping_(std::move(mapping)), file_(std::move(file)), status_(status), path_(path) {}
  std::string_view bytes() const override { return mapping_->bytes(); }
  void willNeed(std::size_t begin, std::size_t end) override { mapping_->advise(begin, end, MADV_POPULATE_READ); }
  void dontNeed(std::size_t begin, std::size_t end) override { mapping_->advise(begin, end, MADV_DONTNEED); }
  void throwIfChanged() const override {
    // The second check finds what raises no signal: a shorter last page, or content that was written in place.
    if (mapping_->truncated() || isChanged(file_.get(), status_)) throwAccessError(path_);
  }

 private:
  std::unique_ptr<MappedFile> mapping_;
  UniqueFd file_;
  struct stat status_;
  std::string path_;
};

// Files of at least this size, in bytes, are mapped. Smaller ones are copied.
constexpr std::size_t mapThreshold = 1024 * 1024;

// Fills `content`. False on failure, and if the file ends before.
bool readAll(int fd, std::string& content) {
  for (std::size_t filled = 0; filled < content.size();) {
    const ssize_t count = ::read(fd, content.data() + filled, content.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    filled += static_cast<std::size_t>(count);
  }
  return true;
}

}  // namespace

std::uint64_t LinuxFiles::fileSize(std::string_view path) {
  struct stat status {};
  if (::stat(std::string(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    throwError(ErrorNumber::fileNotFound, path);
  }
  return static_cast<std::uint64_t>(status.st_size);
}

std::unique_ptr<FileView> LinuxFiles::openForReading(std::string_view path) {
  const auto throwOpenError = [&] {
    throwError(isNotFound(errno) ? missingFileError(path) : ErrorNumber::pathFileAccess, path);
  };
  const std::string name(path);
  struct stat status {};
  if (::stat(name.c_str(), &status) != 0) throwOpenError();
  // Opening a device can have side effects.
  if (!S_ISREG(status.st_mode)) throwAccessError(path);
  UniqueFd file(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file) throwOpenError();
  // Another program may have replaced the file meanwhile, by a pipe for example.
  if (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) throwAccessError(path);

  const auto size = static_cast<std::size_t>(status.st_size);
  if (size >= mapThreshold) {
    if (auto mapping = MappedFile::map(file.get(), size)) {
      return std::make_unique<MappedView>(std::move(mapping), std::move(file), status, path);
    }
  }
  std::string content(size, '\0');
  if (!readAll(file.get(), content) || isChanged(file.get(), status)) throwAccessError(path);
  return std::make_unique<CopiedView>(std::move(content));
}

}  // namespace plimo
