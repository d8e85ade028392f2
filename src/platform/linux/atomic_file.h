// Writes a file atomically: into a temporary file, which is then flushed to the disk and renamed.
//
// Writeback is paced (write-behind with sync_file_range(2)): at most a few MiB are only in the page cache. This keeps
// the final flush short, during which the window does not respond, and the progress reports of a copy true.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/linux/unique_fd.h"

namespace plimo {

// The file that writing to a path changes.
struct WriteTarget {
  std::string path;  // with symbolic links resolved, so that a link is not replaced by a file
  bool exists = false;
  struct stat status {};  // if it exists
};

// False, with errno, if the path cannot be resolved. A missing file in an existing folder is no failure.
bool resolveWriteTarget(std::string_view path, WriteTarget& target);

// The same for a file of the program's own: a link that leads out of the file's folder, or nowhere, is itself what is
// written, as a file that does not exist.
bool resolveOwnTarget(std::string_view path, WriteTarget& target);

// True if the file has no write permission bit at all, even for root, or if the user may not write it.
bool isReadOnly(const std::string& path, const struct stat& status);

class AtomicFile {
 public:
  // An unnamed temporary file (O_TMPFILE) vanishes by itself if the program is killed. If the file system does not
  // support it, or on request, a hidden file in the same folder is used.
  enum class Mode { unnamed, hidden };

  explicit AtomicFile(Mode mode = Mode::unnamed) : mode_(mode) {}
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  ~AtomicFile();

  // All of these return false on failure, with errno.

  // Creates the temporary file for `path`, which has its symbolic links resolved.
  bool create(const std::string& path);
  bool write(std::string_view bytes);
  // Counts bytes as written that were appended through `fd`.
  bool addAppended(off_t bytes);
  // Flush to the disk, then rename in one step: over an existing file, or failing with EEXIST if there is one.
  bool renameReplace();
  bool renameNoReplace();

  int fd() const { return file_.get(); }

 private:
  bool createHidden();
  bool linkHidden();
  // Copies the unnamed file to a hidden one, for file systems that have unnamed files and no hard links.
  bool copyToHidden();
  void syncFolder();

  Mode mode_;
  UniqueFd folder_;
  UniqueFd file_;
  off_t size_ = 0;
  off_t submitted_ = 0;  // bytes whose writeback has been started
  std::string name_;
  std::string temporaryName_;  // empty: none, or the file is unnamed
};

}  // namespace plimo
