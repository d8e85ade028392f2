// The drives, folders and files of a POSIX machine. Names are bytes, told apart by case; a path's short form is the
// path.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "platform/file_system_object.h"
#include "platform/linux/drive_table.h"

namespace plimo {

class LinuxFiles : public FileSystemObject {
 public:
  // The machine's own drives, looked up afresh each time they are asked for.
  explicit LinuxFiles(SystemPaths sources = {});
  // Exactly these drives.
  explicit LinuxFiles(std::vector<DriveRoot> table);

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
  bool walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name), const FileVisitor& found,
            const FileVisitor& entered) override;
  using FileSystemObject::walk;
  std::uint64_t fileSize(std::string_view path) override;
  std::unique_ptr<FileView> openForReading(std::string_view path) override;
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override;
  void deleteFile(std::string_view path, Force force) override;
  void copyFile(std::string_view from, std::string_view to, bool overwrite,
                const std::function<void(std::uint64_t copied, std::uint64_t size)>& progress) override;

 private:
  class Walk;

  std::vector<DriveRoot> table() const;
  bool isDriveRoot(std::string_view folder) const;
  // 71 for a path on a drive that is not ready, else 76.
  ErrorNumber missingFolder(std::string_view path) const;
  // The same, or 53 where the file's folder exists.
  ErrorNumber missingFile(std::string_view path) const;
  [[noreturn]] void failToList(int error, std::string_view folder) const;

  SystemPaths sources_;
  std::optional<std::vector<DriveRoot>> fixedTable_;
};

}  // namespace plimo
