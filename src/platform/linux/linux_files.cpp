// Drives, paths and existence.
#include "platform/linux/linux_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/linux/directory_lister.h"
#include "platform/linux/errno_mapping.h"
#include "platform/linux/path_text.h"

namespace plimo {

namespace {

bool statPath(std::string_view path, struct stat& status) { return ::stat(std::string(path).c_str(), &status) == 0; }

bool sameInode(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

bool isFolder(std::string_view path) {
  struct stat status {};
  return statPath(path, status) && S_ISDIR(status.st_mode);
}

// A root whose status cannot be read is a folder that a scan may not read, not a drive that is not ready.
bool isReadyRoot(const std::string& root) {
  struct stat status {};
  return statPath(root, status) ? S_ISDIR(status.st_mode) : !isNotFound(errno);
}

}  // namespace

LinuxFiles::LinuxFiles(SystemPaths paths) : drives_(std::move(paths)) {}

LinuxFiles::LinuxFiles(std::vector<DriveRoot> drives) : drives_(std::move(drives)) {}

std::vector<Drive> LinuxFiles::drives() {
  std::vector<Drive> drives;
  for (const DriveRoot& drive : drives_.all()) {
    drives.push_back({drive.letter, drive.type, isReadyRoot(drive.root), drive.root});
  }
  return drives;
}

std::string LinuxFiles::currentDirectory() {
  const std::unique_ptr<char, decltype(&std::free)> directory(::getcwd(nullptr, 0), &std::free);
  if (!directory) throwError(ErrorNumber::pathNotFound, ".");
  return directory.get();
}

std::string LinuxFiles::join(std::string_view folder, std::string_view name) { return joinPath(folder, name); }

std::string LinuxFiles::joinAlwaysSeparated(std::string_view folder, std::string_view name) {
  return std::string(folder).append("/").append(name);
}

std::string_view LinuxFiles::fileName(std::string_view path) { return baseName(path); }

std::string LinuxFiles::folderOf(std::string_view path) { return parentPath(path); }

bool LinuxFiles::holdsSeparator(std::string_view name) { return name.find('/') != std::string_view::npos; }

bool LinuxFiles::caseSensitive() { return true; }

bool LinuxFiles::sameFile(std::string_view left, std::string_view right) {
  if (normalizePath(left) == normalizePath(right)) return true;
  struct stat leftStatus {};
  struct stat rightStatus {};
  return statPath(left, leftStatus) && statPath(right, rightStatus) && sameInode(leftStatus, rightStatus);
}

bool LinuxFiles::isRootFolder(std::string_view folder) {
  return normalizePath(folder) == "/" || drives_.isRoot(folder);
}

std::string LinuxFiles::shortFilePath(std::string_view file) {
  if (!fileExists(file)) throwError(ErrorNumber::fileNotFound, file);
  return std::string(file);
}

std::string LinuxFiles::shortFolderPath(std::string_view folder) {
  if (!folderExists(folder)) throwError(ErrorNumber::pathNotFound, folder);
  return std::string(folder);
}

bool LinuxFiles::fileExists(std::string_view path) {
  struct stat status {};
  return statPath(path, status) && S_ISREG(status.st_mode);
}

bool LinuxFiles::folderExists(std::string_view path) { return isFolder(path); }

ErrorNumber LinuxFiles::missingFolderError(std::string_view path) const {
  const std::string normalized = normalizePath(path);
  for (const DriveRoot& drive : drives_.all()) {
    if (folderContains(normalizePath(drive.root), normalized) && !isFolder(drive.root))
      return ErrorNumber::diskNotReady;
  }
  return ErrorNumber::pathNotFound;
}

ErrorNumber LinuxFiles::missingFileError(std::string_view path) const {
  const std::string folder = parentPath(path);
  return folder.empty() || isFolder(folder) ? ErrorNumber::fileNotFound : missingFolderError(path);
}

}  // namespace plimo
