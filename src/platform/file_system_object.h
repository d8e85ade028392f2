// The interface to the machine's drives, folders and files.
//
// Paths are byte strings in the machine's own syntax; the program never writes a separator or a drive prefix itself.
// Relative paths are resolved against the current directory. "Throws N" means RuntimeError N with the path concerned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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

// The names in a folder, files and folders separately, each sorted case-insensitively (equal but for case: by bytes).
struct FolderContents {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

// The bytes of a whole file, as they were when it was opened; usually mapped, not copied.
class FileView {
 public:
  FileView() = default;
  FileView(const FileView&) = delete;
  FileView& operator=(const FileView&) = delete;
  virtual ~FileView() = default;
  virtual std::string_view bytes() const = 0;
  // Throws 75 if another program has written to the file, or truncated it, since it was opened: the bytes read may be
  // anything then. To be called after the last read and before its result is used. May be called by several threads.
  virtual void throwIfChanged() const {}
  // Hints that these bytes will be read soon, or are not needed for now and need not stay in memory. They can be read
  // in either case. May be called by several threads.
  virtual void willNeed(std::size_t /*begin*/, std::size_t /*end*/) {}
  virtual void dontNeed(std::size_t /*begin*/, std::size_t /*end*/) {}
};

// A file that is being replaced. Its new content is invisible until `commit`; without one, the old file stays and no
// trace of the attempt remains.
class FileReplacement {
 public:
  FileReplacement() = default;
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  virtual ~FileReplacement() = default;
  // Throws 61 (disk full) or 75.
  virtual void write(std::string_view bytes) = 0;
  // Flushes to the disk, then replaces the old file atomically. Throws 61 or 75; the old file stays then.
  virtual void commit() = 0;
};

// Whether a read-only file is replaced or deleted all the same. `own`, for the program's own files, also replaces a
// symbolic link that leads out of the file's folder, instead of writing through it.
enum class Force { no, yes, own };

// What a walk over folders calls.
struct WalkVisitor {
  // True for the name of a file that is to be found. Also called on other threads and ahead of the walk, because the
  // next folders are listed in advance.
  bool (*wanted)(std::string_view name) = nullptr;
  // Each file found, by its path; false ends the walk.
  std::function<bool(std::string_view path)> found;
  // Each folder, before its files; false ends the walk. May be empty.
  std::function<bool(std::string_view path)> entered;
  // A folder that cannot be listed; true skips it, false makes the walk throw the error. Empty: always throw.
  std::function<bool(const RuntimeError& error)> unreadable;
  // Called about every 40 ms while the walk waits for this folder to be listed, as on a network drive that does not
  // answer; false ends the walk at once. May be empty.
  std::function<bool(std::string_view path)> waiting;
};

// Called with the bytes copied so far and the size of the file; false cancels the copy.
using CopyProgress = std::function<bool(std::uint64_t copied, std::uint64_t size)>;

class FileSystemObject {
 public:
  FileSystemObject() = default;
  FileSystemObject(const FileSystemObject&) = delete;
  FileSystemObject& operator=(const FileSystemObject&) = delete;
  virtual ~FileSystemObject() = default;

  // In the machine's order.
  virtual std::vector<Drive> drives() = 0;

  // --- Paths. Only sameFile, isRootFolder and the short paths access the disk. ---

  // The process's current directory, absolute.
  virtual std::string currentDirectory() = 0;
  // "folder + separator + name"; a folder that already ends in a separator gets a second one only by
  // joinAlwaysSeparated.
  virtual std::string join(std::string_view folder, std::string_view name) = 0;
  // The same with the separator always added, even after a drive's root ("C:\\winamp.exe").
  virtual std::string joinAlwaysSeparated(std::string_view folder, std::string_view name) = 0;
  // The last component; a path without a separator is its own last component. May be called by several threads.
  virtual std::string_view fileName(std::string_view path) = 0;
  // All components but the last, so that join is the inverse; for a file in a drive's root folder, that root.
  virtual std::string folderOf(std::string_view path) = 0;
  // True for a name that contains a separator of the machine: `\`, `/` or `:` on Windows, `/` elsewhere.
  virtual bool holdsSeparator(std::string_view name) = 0;
  // True if names that differ in case only are different names.
  virtual bool caseSensitive() = 0;
  // True if both paths name the same file: equal texts, texts equal but for case if names are not case-sensitive, or
  // two spellings of one existing file.
  virtual bool sameFile(std::string_view left, std::string_view right) = 0;
  // The root folder of a drive, or of the machine ("/").
  virtual bool isRootFolder(std::string_view folder) = 0;
  // The short (8.3) form of the path of an existing file or folder; the path itself if the machine has no such form.
  // shortFilePath throws 53 (no such file), shortFolderPath 76 (no such folder).
  virtual std::string shortFilePath(std::string_view file) = 0;
  virtual std::string shortFolderPath(std::string_view folder) = 0;

  // --- Existence. Never throws: false if it cannot be determined. ---

  virtual bool fileExists(std::string_view path) = 0;  // a regular file, or a link to one
  virtual bool folderExists(std::string_view path) = 0;

  // --- Folders ---

  // Throws 71 (drive not ready), 76 (no such folder), 70 (may not be read).
  virtual FolderContents contents(std::string_view folder) = 0;

  // Walks a folder depth first: its files in order, then the whole subtree of each subfolder in order, down to `depth`
  // levels of subfolders below it (0: only its own files). Does not follow links to folders. Throws as `contents` does,
  // when the walk reaches the folder that fails. Returns false if the visitor ended the walk.
  virtual bool walk(std::string_view folder, int depth, const WalkVisitor& visitor) = 0;
  bool walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name),
            std::function<bool(std::string_view path)> found) {
    return walk(folder, depth,
                {.wanted = wanted, .found = std::move(found), .entered = {}, .unreadable = {}, .waiting = {}});
  }

  // --- Files ---

  // Throws 53 (no such file).
  virtual std::uint64_t fileSize(std::string_view path) = 0;
  // Throws 53, 76, 70 (in use), 75 (not readable, not a regular file, or changed while it is opened), 71.
  virtual std::unique_ptr<FileView> openForReading(std::string_view path) = 0;
  // Throws 76 (no such folder), 75 (the folder or, unless forced, the old file may not be written; or a folder of
  // that name), 70 (the old file is in use), 61, 71, 52 (a name that the machine does not support). A forced file is
  // writable from then on; otherwise the file keeps its permissions. Writes through a symbolic link, unless it is an
  // `own` file.
  virtual std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) = 0;
  // Throws 53, 70 (read-only unless forced, in use, or the folder may not be written).
  virtual void deleteFile(std::string_view path, Force force) = 0;
  // Copies one file with its time and permissions. The target appears complete or not at all. Throws 53 (no source),
  // 58 (target exists and overwriting is off), 70 (source may not be read; target read-only; folder may not be
  // written; onto itself), 76 (no target folder), 61, 52 (a name that the machine does not support). Returns
  // false if `progress` cancelled it; no target appears then.
  virtual bool copyFile(std::string_view from, std::string_view to, bool overwrite,
                        const CopyProgress& progress = {}) = 0;
  // Renames a file, replacing `to`; the outcome is that of copying it over `to` and deleting it, without room for a
  // second copy. Returns false, and changes nothing, if the machine cannot do it in one step (two file systems, a link)
  // or if the old file is read-only.
  // Throws as copyFile and deleteFile do.
  // With force, the permissions of both files do not matter.
  virtual bool moveFile(std::string_view from, std::string_view to, Force force = Force::no) = 0;
  // Removes the temporary files that killed processes of this program have left in a folder. Never throws; leaves the
  // files of running processes, and everything else.
  virtual void removeLeftovers(std::string_view /*folder*/) {}

  // --- Long work ---

  // Runs work on much data, such as reading a whole file through its view or writing one, and returns when it has
  // ended; throws what it throws. It may run on another thread while the caller's window is painted and ignores input.
  // So the work must not change a control, open a dialog or call any of the functions above that is not said to be
  // called by several threads. Work inside such work runs at once.
  virtual void runInBackground(const std::function<void()>& work) { work(); }
};

// Deletes one of the program's own files, with force. Failures are ignored: the next attempt to write it reports them.
inline void deleteIfPresent(FileSystemObject& files, std::string_view path) {
  if (!files.fileExists(path)) return;
  try {
    files.deleteFile(path, Force::yes);
  } catch (const RuntimeError&) {
  }
}

// As fileExists, but throws as openForReading does (70, 71, 75) if it cannot be determined, for example because the
// disk has failed to read the file's status. For commands that overwrite or delete something because a file is missing.
inline bool checkedFileExists(FileSystemObject& files, std::string_view path) {
  if (files.fileExists(path)) return true;
  if (files.folderExists(path)) return false;
  try {
    files.openForReading(path);
    return true;
  } catch (const RuntimeError& error) {
    if (error.number() == ErrorNumber::fileNotFound || error.number() == ErrorNumber::pathNotFound) return false;
    throw;
  }
}

// A copy of a whole file. Throws as openForReading does, and 75 if another program changes the file meanwhile.
inline std::string readWhole(FileSystemObject& files, std::string_view path) {
  const auto view = files.openForReading(path);
  std::string content(view->bytes());
  view->throwIfChanged();
  return content;
}

// Writes a whole file in one step: replaceFile, write, commit.
inline void replaceWhole(FileSystemObject& files, std::string_view path, std::string_view content, Force force) {
  const auto replacement = files.replaceFile(path, force);
  replacement->write(content);
  replacement->commit();
}

}  // namespace plimo
