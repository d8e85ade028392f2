// The machine's drives, folders and files, as the program asks for them.
//
// Paths are the machine's own texts (bytes); the program never writes a separator or a drive prefix itself. Relative
// paths are taken from the current directory. Where a function is said to throw, it throws RuntimeError with the path
// concerned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"

namespace plimo {

enum class DriveType { unknown = 0, removable = 1, fixed = 2, network = 3, cdrom = 4, ramdisk = 5 };

struct Drive {
  char letter = 0;  // A to Z
  DriveType type = DriveType::unknown;
  bool ready = false;
  std::string root;  // the root folder's path: "C:\" or "/home/ana"
};

// What stands in a folder: bare names, files and folders apart, each sorted without regard to case (equal but for case:
// by bytes).
struct FolderContents {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

// A whole file's bytes, as they were when it was opened; usually mapped, not copied.
class FileView {
 public:
  FileView() = default;
  FileView(const FileView&) = delete;
  FileView& operator=(const FileView&) = delete;
  virtual ~FileView() = default;
  virtual std::string_view bytes() const = 0;
  // These bytes will soon be read, or are not needed for now: what they take of the memory may come and go. They can
  // be read all the same. May be called by several threads.
  virtual void willNeed(std::size_t /*begin*/, std::size_t /*end*/) {}
  virtual void dontNeed(std::size_t /*begin*/, std::size_t /*end*/) {}
};

// A file that is being written anew. Nothing of it is seen under its own name until `commit`; without one, whatever
// stood there stays, and no trace of the attempt is left.
class FileReplacement {
 public:
  FileReplacement() = default;
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  virtual ~FileReplacement() = default;
  // Throws 61 (disk full) or 75.
  virtual void write(std::string_view bytes) = 0;
  // Flushes to the disk, then takes the old file's place in one step. Throws 61 or 75; the old file stands then.
  virtual void commit() = 0;
};

// What a replacement does to an old file that may not be written.
enum class Force { no, yes };

// Hears of each file (or folder) as a walk comes to it, by its path; false ends the walk.
using FileVisitor = std::function<bool(std::string_view path)>;

class FileSystemObject {
 public:
  FileSystemObject() = default;
  FileSystemObject(const FileSystemObject&) = delete;
  FileSystemObject& operator=(const FileSystemObject&) = delete;
  virtual ~FileSystemObject() = default;

  // In the machine's order.
  virtual std::vector<Drive> drives() = 0;

  // --- Paths. None of these looks at the disk but isRootFolder, shortPath and the last two. ---

  // The process's current directory, absolute.
  virtual std::string currentDirectory() = 0;
  // "folder + separator + name"; a folder that already ends in a separator gets a second one only by
  // joinAlwaysSeparated.
  virtual std::string join(std::string_view folder, std::string_view name) = 0;
  // The same with the separator always added, even behind a drive's root ("C:\\winamp.exe").
  virtual std::string joinAlwaysSeparated(std::string_view folder, std::string_view name) = 0;
  // The last piece; a path without a separator is its own last piece. May be asked by several threads.
  virtual std::string_view fileName(std::string_view path) = 0;
  // All pieces but the last, as join took them; a drive's root for a file that stands in it.
  virtual std::string folderOf(std::string_view path) = 0;
  // True for a name that holds a separator of the machine: `\`, `/` or `:` on Windows, `/` elsewhere.
  virtual bool holdsSeparator(std::string_view name) = 0;
  // True where names are told apart by case.
  virtual bool caseSensitive() = 0;
  // True when both paths name the same file on this machine: the same text, the same text but for case where case does
  // not tell, or two spellings of one existing file.
  virtual bool sameFile(std::string_view left, std::string_view right) = 0;
  // The root folder of a drive, or of the machine ("/").
  virtual bool isRootFolder(std::string_view folder) = 0;
  // The short (8.3) form of an existing file's or folder's path; the path itself where the machine has none.
  // Throws 53 (no such file) for `shortFilePath`, 76 (no such folder) for `shortFolderPath`.
  virtual std::string shortFilePath(std::string_view file) = 0;
  virtual std::string shortFolderPath(std::string_view folder) = 0;

  // --- Existence. False, never a failure, for anything that cannot be told. ---

  virtual bool fileExists(std::string_view path) = 0;  // a regular file, or a link to one
  virtual bool folderExists(std::string_view path) = 0;

  // --- Folders ---

  // Throws 71 (drive not ready), 76 (no such folder), 70 (may not be read).
  virtual FolderContents contents(std::string_view folder) = 0;

  // Walks a folder depth first: its files in order, then each subfolder's whole subtree in order, down to `depth`
  // levels of subfolders below it (0: its own files only). Reports the path of each file whose name `wanted` accepts;
  // that is asked on other threads too, and a little ahead of the walk, for folders near by are listed meanwhile.
  // `entered` hears of each folder before its files. Links to folders are not followed. Throws as `contents` does, when
  // the walk reaches the folder that fails. Returns false when `found` or `entered` ended the walk.
  virtual bool walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name), const FileVisitor& found,
                    const FileVisitor& entered) = 0;
  bool walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name), const FileVisitor& found) {
    return walk(folder, depth, wanted, found, [](std::string_view) { return true; });
  }

  // --- Files ---

  // Throws 53 (no such file).
  virtual std::uint64_t fileSize(std::string_view path) = 0;
  // Throws 53, 76, 70 (in use), 75 (may not be read, or a folder), 71.
  virtual std::unique_ptr<FileView> openForReading(std::string_view path) = 0;
  // Throws 76 (no such folder), 75 (the folder or, unless forced, the old file may not be written; or a folder of
  // that name), 70 (the old file is in use), 61, 71, 52 (a name that the machine cannot hold). What is forced may be
  // written from then on; otherwise the file keeps its permissions.
  virtual std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) = 0;
  // Throws 53, 70 (read-only unless forced, in use, or the folder may not be written).
  virtual void deleteFile(std::string_view path, Force force) = 0;
  // Copies one file with its time and permissions. The target appears whole or not at all. Throws 53 (no source),
  // 58 (target exists and overwriting is off), 70 (source may not be read; target read-only; folder may not be
  // written; onto itself), 76 (no target folder), 61, 52 (a name that the machine cannot hold). `progress` hears of
  // the bytes copied so far.
  virtual void copyFile(std::string_view from, std::string_view to, bool overwrite,
                        const std::function<void(std::uint64_t copied, std::uint64_t size)>& progress = {}) = 0;
};

// Deletes one of the program's own files, with force. Failures are ignored: whatever writes the file next reports them.
inline void deleteIfPresent(FileSystemObject& files, std::string_view path) {
  if (!files.fileExists(path)) return;
  try {
    files.deleteFile(path, Force::yes);
  } catch (const RuntimeError&) {
  }
}

// Writes a whole file in one step: replaceFile, write, commit.
inline void replaceWhole(FileSystemObject& files, std::string_view path, std::string_view content, Force force) {
  const auto replacement = files.replaceFile(path, force);
  replacement->write(content);
  replacement->commit();
}

}  // namespace plimo
