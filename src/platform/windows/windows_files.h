// The drives, folders and files of a Windows system. Names are case-preserving but not case-sensitive.
//
// Defined in windows_files.cpp (drives, paths, existence), windows_files_listing.cpp (folders),
// windows_files_reading.cpp, windows_files_writing.cpp (replacing, deleting) and windows_files_copying.cpp.
//
// Paths are UTF-8, with unpaired surrogates as WTF-8. Any length is supported: the system is given the long form
// ("\\?\C:\..."), which never leaves this folder.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "platform/file_system_object.h"
#include "platform/windows/drive_table.h"

namespace plimo {

class WindowsFiles : public FileSystemObject {
 public:
  // With the system's own drives, read again at each call that needs them.
  WindowsFiles();
  // With exactly these drives.
  explicit WindowsFiles(std::vector<DriveRoot> drives);

  std::vector<Drive> drives() override;
  std::string currentDirectory() override;
  std::string join(std::string_view folder, std::string_view name) override;
  std::string joinAlwaysSeparated(std::string_view folder, std::string_view name) override;
  std::string_view fileName(std::string_view path) override;
  std::string folderOf(std::string_view path) override;
  bool holdsSeparator(std::string_view name) override;
  bool caseSensitive() override;
  bool sameFile(std::string_view left, std::string_view right) override;
  bool isRootFolder(std::string_view folder) override;
  std::string shortFilePath(std::string_view file) override;
  std::string shortFolderPath(std::string_view folder) override;
  bool fileExists(std::string_view path) override;
  bool folderExists(std::string_view path) override;
  FolderContents contents(std::string_view folder) override;
  bool walk(std::string_view folder, int depth, const WalkVisitor& visitor) override;
  using FileSystemObject::walk;
  std::uint64_t fileSize(std::string_view path) override;
  std::unique_ptr<FileView> openForReading(std::string_view path) override;
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override;
  void deleteFile(std::string_view path, Force force) override;
  bool copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) override;
  bool moveFile(std::string_view from, std::string_view to, Force force = Force::no) override;
  void removeLeftovers(std::string_view folder) override;

 private:
  std::vector<DriveRoot> driveRoots() const;
  bool isDriveRoot(std::string_view folder) const;
  // 71 for a path on a drive that is not ready, else 76.
  ErrorNumber missingFolderError(std::string_view path) const;
  // 53 if the file's folder exists, else as missingFolderError.
  ErrorNumber missingFileError(std::string_view path) const;
  // The error of listing a folder, for the system's error code.
  ErrorNumber listingError(std::uint32_t error, std::string_view folder) const;
  // The file that a copy or a move writes: `to`, or what it links to. Throws as copyFile does.
  std::string copyTarget(std::string_view to, bool overwrite, Force force) const;

  std::optional<std::vector<DriveRoot>> fixedDrives_;
};

}  // namespace plimo
