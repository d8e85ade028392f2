// Windows-like disks in memory: backslash paths (a doubled backslash counts as one), case-preserving and
// case-insensitive names, short names, read-only and locked files, full drives, drives that are not ready, and injected
// failures.
//
// Defined in fake_file_system.cpp (what the program calls), fake_file_system_writing.cpp (replacing, deleting,
// copying), fake_file_system_setup.cpp and fake_file_system_paths.cpp.
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
  // With a fixed, ready drive C; the current directory is C:\Plimo.
  FakeFileSystem();

  // --- Setup. Allowed at any time; does not count as a step. Throws std::invalid_argument for a path that cannot
  // exist: without a drive, or below a file. ---

  // Appends a drive to the drive list, or changes the one with that letter in its position.
  void addDrive(char letter, DriveType type, bool ready = true);
  // Clears the drive list. The files remain and can still be accessed.
  void removeDrives();
  // The drive need not be in the list.
  void setReady(char letter, bool ready);
  void setDiskFull(char letter, bool full);
  // False: moveFile always returns false, as if each folder were a file system of its own.
  void setMovesFiles(bool on) { movesFiles_ = on; }

  // Creates the folder if it is missing.
  void setCurrentDirectory(std::string_view path);

  // Create missing parent folders. What exists already keeps its spelling and gets the new content and flags.
  void addFolder(std::string_view path, FolderFlags flags = {});
  void addFile(std::string_view path, std::uint64_t size = 0, FileFlags flags = {});
  void addTextFile(std::string_view path, std::string content, FileFlags flags = {});
  // Removes a file, or a folder with its content; false if there is none.
  bool remove(std::string_view path);

  // A file's content, whatever its flags; nullopt if there is no such file.
  std::optional<std::string> fileContent(std::string_view path) const;
  // The file's or folder's own name with its case as stored; nullopt if there is none.
  std::optional<std::string> spelledName(std::string_view path) const;
  std::optional<FileFlags> fileFlags(std::string_view path) const;

  // --- Failure injection ---

  // A call that can fail, a folder listed by a walk, or a write or commit of a replacement.
  enum class Step { shortFilePath, shortFolderPath, list, size, open, replace, write, commit, remove, copy, move };
  // All steps taken so far.
  const std::vector<Step>& steps() const { return steps_; }
  // The n-th step from now (1: the next) fails once with this error and has no effect. 0: none.
  void failAt(std::size_t n, ErrorNumber error);
  // The machine changes before the n-th step from now.
  void changeAt(std::size_t n, std::function<void()> change);
  // True until the requested failure, or change, has happened.
  bool failurePending() const { return stepsToFailure_ != 0; }

  // Calls of fileExists and folderExists so far.
  std::size_t existenceChecks() const { return existenceChecks_; }
  // The n-th of these calls from now (1: the next) returns false once, as for a file whose status cannot be read.
  void failExistenceCheckAt(std::size_t n) { checksToFailure_ = n; }

  // --- FileSystemObject ---

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

 private:
  class Replacement;

  // An absolute path split into its drive and the names below the root.
  struct ParsedPath {
    char letter = 0;
    std::vector<std::string> names;
    bool endsInSeparator = false;
  };
  struct Disk {
    std::unique_ptr<FakeNode> root;
    bool ready = true;
    bool full = false;
  };
  // What a path resolves to. `node` is null if there is nothing, `parent` too if that folder does not exist or the path
  // is a drive's root.
  struct Location {
    const Disk* disk = nullptr;
    FakeNode* parent = nullptr;
    FakeNode* node = nullptr;
    std::string name;
  };
  struct DriveEntry {
    char letter;
    DriveType type;
  };

  static bool isDriveLetter(char c);
  static char upperCase(char letter);
  // Nullopt if the path is empty or has no drive.
  std::optional<ParsedPath> parsePath(std::string_view path) const;
  // Whether the drive is ready or not.
  Location locate(std::string_view path) const;
  // As the program sees it: a drive that is not ready is empty.
  Location locateVisible(std::string_view path) const;
  // Null if there is none.
  FakeNode* findFile(std::string_view path) const;
  FakeNode* findFolder(std::string_view path) const;
  std::string shortPath(std::string_view path) const;
  Disk& diskOf(char letter);
  // Creates the file or folder and its missing parents; returns what exists already.
  FakeNode& create(FakeNode::Kind kind, std::string_view path);
  // Records a step; throws the injected failure if this is the one.
  void step(Step step, std::string_view path);
  // Counts a check; false if this is the one that fails.
  bool canCheck();
  FolderContents list(std::string_view folder);
  // Throws as replaceFile does.
  // The target of a copy; throws as copyFile does, except for a full disk.
  Location locateForCopying(std::string_view from, std::string_view to, bool overwrite, Force force = Force::no) const;
  Location locateForReplacing(std::string_view path, Force force) const;

  std::vector<DriveEntry> driveTable_;
  std::map<char, Disk> disks_;
  std::string currentDirectory_;
  bool movesFiles_ = true;
  std::vector<Step> steps_;
  std::size_t stepsToFailure_ = 0;  // 0: no failure is requested
  ErrorNumber failure_ = ErrorNumber::permissionDenied;
  std::function<void()> change_;  // instead of the failure
  std::size_t existenceChecks_ = 0;
  std::size_t checksToFailure_ = 0;  // 0: no failure is requested
};

}  // namespace plimo
