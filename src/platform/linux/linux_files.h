// The drives, folders and files of a Linux system. Names are bytes and case-sensitive; a path is its own short form.
//
// Defined in linux_files.cpp (drives, paths, existence), linux_files_listing.cpp (folders), linux_files_reading.cpp and
// linux_files_writing.cpp (replacing, deleting, copying).
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "platform/file_system_object.h"
#include "platform/linux/drive_table.h"

namespace plimo {

class LinuxFiles : public FileSystemObject {
 public:
  // With the system's own drives, read again at each call that needs them.
  explicit LinuxFiles(SystemPaths paths = {});
  // With exactly these drives.
  explicit LinuxFiles(std::vector<DriveRoot> drives);

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
  // 71 for a path on a drive that is not ready, else 76.
  ErrorNumber missingFolderError(std::string_view path) const;
  // 53 if the file's folder exists, else as missingFolderError.
  ErrorNumber missingFileError(std::string_view path) const;
  ErrorNumber listingError(int error, std::string_view folder) const;

  DriveRoots drives_;
};

}  // namespace plimo
