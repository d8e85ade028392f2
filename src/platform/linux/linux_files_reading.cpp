// Reading files.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/linux/errno_mapping.h"
#include "platform/linux/linux_files.h"
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

class MappedView : public FileView {
 public:
  MappedView(void* start, std::size_t size) : start_(start), size_(size) {}
  ~MappedView() override { ::munmap(start_, size_); }
  std::string_view bytes() const override { return {static_cast<const char*>(start_), size_}; }
  void willNeed(std::size_t begin, std::size_t end) override { advise(begin, end, MADV_POPULATE_READ); }
  void dontNeed(std::size_t begin, std::size_t end) override { advise(begin, end, MADV_DONTNEED); }

 private:
  // Applies the advice to whole pages. Only an optimisation, so errors are ignored.
  void advise(std::size_t begin, std::size_t end, int advice) {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    begin -= begin % page;
    if (end != size_) end -= end % page;
    if (begin < end) ::madvise(static_cast<char*>(start_) + begin, end - begin, advice);
  }

  void* start_;
  std::size_t size_;
};

// Files of at least this size, in bytes, are mapped. Smaller ones are copied, because reading a mapped file that
// another program truncates raises SIGBUS. The large files read here are catalogues, which are only ever replaced.
constexpr std::size_t mapThreshold = 1024 * 1024;

// Reads to the end; `content` brings the expected size. False, with errno, on failure.
bool readToEnd(int fd, std::string& content) {
  std::size_t filled = 0;
  for (;;) {
    if (filled == content.size()) content.resize(filled + std::max<std::size_t>(filled, 4096));
    const ssize_t got = ::read(fd, content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  content.resize(filled);
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
  // Opening a pipe or a device can block or have side effects.
  if (!S_ISREG(status.st_mode)) throwError(ErrorNumber::pathFileAccess, path);
  const UniqueFd file(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) throwOpenError();
  if (::fstat(file.get(), &status) != 0) throwError(ErrorNumber::pathFileAccess, path);

  const auto size = static_cast<std::size_t>(status.st_size);
  if (size >= mapThreshold) {
    void* start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0);
    if (start != MAP_FAILED) return std::make_unique<MappedView>(start, size);
  }
  std::string content(size + 1, '\0');  // one byte more, so that the end is reached without growing
  if (!readToEnd(file.get(), content)) throwError(ErrorNumber::pathFileAccess, path);
  return std::make_unique<CopiedView>(std::move(content));
}

}  // namespace plimo
