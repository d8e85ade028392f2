// Drives, paths and existence.
#include "platform/windows/windows_files.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "platform/windows/error_mapping.h"
#include "platform/windows/native_path.h"
#include "platform/windows/process_setup.h"

namespace plimo {

namespace {

bool isFolder(std::string_view path) {
  const auto status = fileStatus(path);
  return status && status->isFolder();
}

bool sameText(std::string_view left, std::string_view right) {
  const auto absoluteLeft = absolutePath(left);
  const auto absoluteRight = absolutePath(right);
  return absoluteLeft && absoluteRight && compareFolded(*absoluteLeft, *absoluteRight) == 0;
}

// Whether both are spellings of one existing file, by its number on its volume.
bool sameFileNumber(std::string_view left, std::string_view right) {
  const UniqueHandle leftFile = openShared(left, FILE_READ_ATTRIBUTES);
  const UniqueHandle rightFile = leftFile ? openShared(right, FILE_READ_ATTRIBUTES) : UniqueHandle();
  BY_HANDLE_FILE_INFORMATION leftStatus{};
  BY_HANDLE_FILE_INFORMATION rightStatus{};
  return rightFile && ::GetFileInformationByHandle(leftFile.get(), &leftStatus) &&
         ::GetFileInformationByHandle(rightFile.get(), &rightStatus) &&
         leftStatus.dwVolumeSerialNumber == rightStatus.dwVolumeSerialNumber &&
         leftStatus.nFileIndexHigh == rightStatus.nFileIndexHigh &&
         leftStatus.nFileIndexLow == rightStatus.nFileIndexLow;
}

std::string shortPath(std::string_view path) {
  std::wstring buffer(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        ::GetShortPathNameW(nativePath(path).c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) return std::string(path);  // this volume has no short names
    const bool fits = length < buffer.size();
    buffer.resize(length);
    if (fits) return plainPath(fromWide(buffer));
  }
}

}  // namespace

WindowsFiles::WindowsFiles() { disableDriveMessages(); }

WindowsFiles::WindowsFiles(std::vector<DriveRoot> drives) : WindowsFiles() {
  for (DriveRoot& drive : drives) drive.root = absolutePath(drive.root).value_or(drive.root);
  fixedDrives_ = std::move(drives);
}

std::vector<DriveRoot> WindowsFiles::driveRoots() const { return fixedDrives_ ? *fixedDrives_ : systemDrives(); }

std::vector<Drive> WindowsFiles::drives() {
  std::vector<Drive> drives;
  for (const DriveRoot& drive : driveRoots()) {
    drives.push_back({drive.letter, drive.type, isFolder(drive.root), drive.root});
  }
  return drives;
}

std::string WindowsFiles::currentDirectory() {
  std::string folder = currentFolder();
  if (folder.empty()) throwError(ErrorNumber::pathNotFound, ".");
  return folder;
}

std::string WindowsFiles::join(std::string_view folder, std::string_view name) { return joinPath(folder, name); }

std::string WindowsFiles::joinAlwaysSeparated(std::string_view folder, std::string_view name) {
  return std::string(folder).append("\\").append(name);
}

std::string_view WindowsFiles::fileName(std::string_view path) { return baseName(path); }

std::string WindowsFiles::folderOf(std::string_view path) { return parentPath(path); }

bool WindowsFiles::holdsSeparator(std::string_view name) {
  return name.find_first_of("\\/:") != std::string_view::npos;
}

bool WindowsFiles::caseSensitive() { return false; }

bool WindowsFiles::sameFile(std::string_view left, std::string_view right) {
  return left == right || sameText(left, right) || sameFileNumber(left, right);
}

bool WindowsFiles::isRootFolder(std::string_view folder) {
  const auto absolute = absolutePath(folder);
  return absolute && (isRootPath(*absolute) || isDriveRoot(folder));
}

bool WindowsFiles::isDriveRoot(std::string_view folder) const {
  const std::vector<DriveRoot> drives = driveRoots();
  return std::any_of(drives.begin(), drives.end(),
                     [&](const DriveRoot& drive) { return sameText(drive.root, folder); });
}

std::string WindowsFiles::shortFilePath(std::string_view file) {
  if (!fileExists(file)) throwError(ErrorNumber::fileNotFound, file);
  return shortPath(file);
}

std::string WindowsFiles::shortFolderPath(std::string_view folder) {
  if (!folderExists(folder)) throwError(ErrorNumber::pathNotFound, folder);
  return shortPath(folder);
}

bool WindowsFiles::fileExists(std::string_view path) {
  const auto status = fileStatus(path);
  return status && !status->isFolder();
}

bool WindowsFiles::folderExists(std::string_view path) { return isFolder(path); }

ErrorNumber WindowsFiles::missingFolderError(std::string_view path) const {
  const auto absolute = absolutePath(path);
  if (!absolute) return ErrorNumber::pathNotFound;
  for (const DriveRoot& drive : driveRoots()) {
    if (folderContains(drive.root, *absolute) && !isFolder(drive.root)) return ErrorNumber::diskNotReady;
  }
  return ErrorNumber::pathNotFound;
}

ErrorNumber WindowsFiles::missingFileError(std::string_view path) const {
  const std::string folder = parentPath(path);
  return folder.empty() || isFolder(folder) ? ErrorNumber::fileNotFound : missingFolderError(path);
}

}  // namespace plimo
