// Drives, paths, existence and reading.
#include "platform/linux/linux_files.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/linux/errno_mapping.h"
#include "platform/linux/path_text.h"
#include "platform/linux/unique_fd.h"

namespace plimo {

namespace {

bool look(std::string_view path, struct stat& status) { return ::stat(std::string(path).c_str(), &status) == 0; }

bool isFolder(std::string_view path) {
  struct stat status {};
  return look(path, status) && S_ISDIR(status.st_mode);
}

bool opensAsFolder(const std::string& path) {
  return static_cast<bool>(UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC)));
}

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
  // For the whole pages up to the end; a kernel that does not know an advice does well without.
  void advise(std::size_t begin, std::size_t end, int advice) {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    begin -= begin % page;
    if (end != size_) end -= end % page;
    if (begin < end) ::madvise(static_cast<char*>(start_) + begin, end - begin, advice);
  }

  void* start_;
  std::size_t size_;
};

// Files from this size on are mapped. Smaller ones are copied, because a mapped file that another program cuts short
// cannot be read to its end; the large files that are read here are catalogues, and those are only ever replaced.
constexpr std::size_t mappedFrom = 1024 * 1024;

bool readAll(int file, std::string& content) {
  std::size_t filled = 0;
  for (;;) {
    // One byte more than expected, so that the end is met without another growth.
    if (filled == content.size()) content.resize(filled + std::max<std::size_t>(filled, 4096));
    const ssize_t got = ::read(file, content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  content.resize(filled);
  return true;
}

}  // namespace

LinuxFiles::LinuxFiles(SystemPaths sources) : sources_(std::move(sources)) {}

LinuxFiles::LinuxFiles(std::vector<DriveRoot> table) : fixedTable_(std::move(table)) {}

std::vector<DriveRoot> LinuxFiles::table() const { return fixedTable_ ? *fixedTable_ : defaultDriveTable(sources_); }

std::vector<Drive> LinuxFiles::drives() {
  std::vector<Drive> drives;
  for (const DriveRoot& drive : table()) {
    drives.push_back({drive.letter, drive.type, opensAsFolder(drive.root), drive.root});
  }
  return drives;
}

std::string LinuxFiles::currentDirectory() {
  const std::unique_ptr<char, decltype(&std::free)> directory(::getcwd(nullptr, 0), &std::free);
  if (!directory) fail(ErrorNumber::pathNotFound, ".");
  return directory.get();
}

std::string LinuxFiles::join(std::string_view folder, std::string_view name) { return joinPath(folder, name); }

std::string LinuxFiles::joinAlwaysSeparated(std::string_view folder, std::string_view name) {
  return std::string(folder).append("/").append(name);
}

std::string_view LinuxFiles::fileName(std::string_view path) { return lastPiece(path); }

std::string LinuxFiles::folderOf(std::string_view path) { return parentOf(path); }

bool LinuxFiles::holdsSeparator(std::string_view name) { return name.find('/') != std::string_view::npos; }

bool LinuxFiles::caseSensitive() { return true; }

bool LinuxFiles::sameFile(std::string_view left, std::string_view right) {
  if (tidyPath(left) == tidyPath(right)) return true;
  struct stat one {};
  struct stat other {};
  return look(left, one) && look(right, other) && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool LinuxFiles::isRootFolder(std::string_view folder) { return tidyPath(folder) == "/" || isDriveRoot(folder); }

bool LinuxFiles::isDriveRoot(std::string_view folder) const {
  struct stat status {};
  const bool exists = look(folder, status);
  const std::vector<DriveRoot> drives = table();
  return std::any_of(drives.begin(), drives.end(), [&](const DriveRoot& drive) {
    if (tidyPath(drive.root) == tidyPath(folder)) return true;
    struct stat root {};
    return exists && look(drive.root, root) && root.st_dev == status.st_dev && root.st_ino == status.st_ino;
  });
}

std::string LinuxFiles::shortFilePath(std::string_view file) {
  if (!fileExists(file)) fail(ErrorNumber::fileNotFound, file);
  return std::string(file);
}

std::string LinuxFiles::shortFolderPath(std::string_view folder) {
  if (!folderExists(folder)) fail(ErrorNumber::pathNotFound, folder);
  return std::string(folder);
}

bool LinuxFiles::fileExists(std::string_view path) {
  struct stat status {};
  return look(path, status) && S_ISREG(status.st_mode);
}

bool LinuxFiles::folderExists(std::string_view path) { return isFolder(path); }

ErrorNumber LinuxFiles::missingFolder(std::string_view path) const {
  const std::string tidy = tidyPath(path);
  for (const DriveRoot& drive : table()) {
    if (liesIn(tidy, tidyPath(drive.root)) && !opensAsFolder(drive.root)) return ErrorNumber::diskNotReady;
  }
  return ErrorNumber::pathNotFound;
}

ErrorNumber LinuxFiles::missingFile(std::string_view path) const {
  const std::string folder = parentOf(path);
  return folder.empty() || isFolder(folder) ? ErrorNumber::fileNotFound : missingFolder(path);
}

std::uint64_t LinuxFiles::fileSize(std::string_view path) {
  struct stat status {};
  if (!look(path, status) || !S_ISREG(status.st_mode)) fail(ErrorNumber::fileNotFound, path);
  return static_cast<std::uint64_t>(status.st_size);
}

std::unique_ptr<FileView> LinuxFiles::openForReading(std::string_view path) {
  struct stat status {};
  if (!look(path, status)) fail(isMissing(errno) ? missingFile(path) : ErrorNumber::pathFileAccess, path);
  // Opening a pipe or a device can do things; only files are opened.
  if (!S_ISREG(status.st_mode)) fail(ErrorNumber::pathFileAccess, path);
  const UniqueFd file(::open(std::string(path).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) fail(isMissing(errno) ? missingFile(path) : ErrorNumber::pathFileAccess, path);
  if (::fstat(file.number(), &status) != 0) fail(ErrorNumber::pathFileAccess, path);

  const auto size = static_cast<std::size_t>(status.st_size);
  if (size >= mappedFrom) {
    void* start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
    if (start != MAP_FAILED) {
      ::madvise(start, size, MADV_SEQUENTIAL);
      return std::make_unique<MappedView>(start, size);
    }
  }
  std::string content(size + 1, '\0');
  if (!readAll(file.number(), content)) fail(ErrorNumber::pathFileAccess, path);
  return std::make_unique<CopiedView>(std::move(content));
}

}  // namespace plimo
