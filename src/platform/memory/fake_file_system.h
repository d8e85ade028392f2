// A Windows-like computer's disks, in memory: backslash paths (a doubled one counts as one), names that keep their case
// and compare without it, short names, read-only and locked files, full and empty drives, and failures on demand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "platform/file_system_object.h"
#include "platform/memory/fake_node.h"

namespace plimo {

class FakeFileSystem : public FileSystemObject {
 public:
  // Drive C, fixed and ready; the current directory is C:\Plimo.
  FakeFileSystem();

  // --- The world. Possible at any time; none of it counts as a step. A path that names no place on a drive, or whose
  // way leads through a file, is std::invalid_argument. ---

  // Adds a drive behind the others, or changes the one of that letter where it stands.
  void addDrive(char letter, DriveType type, bool ready = true);
  // Empties the table of drives. What stands on them stays, and can be reached, for when they are added again.
  void removeDrives();
  // The drive need not be in the table.
  void setReady(char letter, bool ready);
  void setDiskFull(char letter, bool full);

  // Makes the folder if it is missing.
  void setCurrentDirectory(std::string_view path);

  // Folders on the way are made; what stands there already keeps its spelling and gets the new content and flags.
  void addFolder(std::string_view path, FolderFlags flags = {});
  void addFile(std::string_view path, std::uint64_t size = 0, FileFlags flags = {});
  void addTextFile(std::string_view path, std::string content, FileFlags flags = {});
  // Removes a file, or a folder with all that is in it; false where there was none.
  bool remove(std::string_view path);

  // A file's content, whatever its flags; nothing where there is no such file.
  std::optional<std::string> fileContent(std::string_view path) const;
  // The last name in exactly the letters it has on the disk; nothing where there is no such file or folder.
  std::optional<std::string> spelledName(std::string_view path) const;
  std::optional<FileFlags> fileFlags(std::string_view path) const;

  // --- Failures on demand. A step is each call that can fail, each folder that a walk lists, and each write and
  // commit of a replacement. ---

  // The n-th step from now (from 1) fails with this error and does nothing; once. 0: none.
  void failAt(std::size_t n, ErrorNumber error);
  // True while a failure asked for has not happened yet.
  bool failurePending() const { return failIn_ != 0; }
  std::size_t stepsTaken() const { return steps_; }

  // --- What the program asks ---

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
  class Replacement;

  // A path taken apart: the drive and the names from its root on.
  struct ParsedPath {
    char letter = 0;
    std::vector<std::string> names;
    bool folder = false;  // ended in a separator
  };
  struct Disk {
    std::unique_ptr<FakeNode> root;
    bool ready = true;
    bool full = false;
  };
  // Where a path leads. The node is null where nothing stands, the folder where not even that exists.
  struct Place {
    const Disk* disk = nullptr;
    FakeNode* folder = nullptr;
    FakeNode* node = nullptr;
    std::string name;
  };
  struct TableEntry {
    char letter;
    DriveType type;
  };

  std::optional<ParsedPath> route(std::string_view path) const;
  // Looks at the disk, ready or not.
  Place place(std::string_view path) const;
  // As the program sees it: nothing stands on a drive that is not ready.
  Place seen(std::string_view path) const;
  FakeNode* seenFile(std::string_view path) const;
  FakeNode* seenFolder(std::string_view path) const;
  std::string shortPath(std::string_view path) const;
  Disk& diskOf(char letter);
  // Makes the folders on the way and the file or folder at its end.
  FakeNode& make(FakeNode::Kind kind, std::string_view path);
  void step(std::string_view path);
  FolderContents list(std::string_view folder);
  // The place of a file that is to be written; throws as replaceFile does.
  Place placeToReplace(std::string_view path, Force force) const;

  std::vector<TableEntry> table_;
  std::map<char, Disk> disks_;
  std::string currentDirectory_;
  std::size_t steps_ = 0;
  std::size_t failIn_ = 0;
  ErrorNumber failure_ = ErrorNumber::permissionDenied;
};

}  // namespace plimo
