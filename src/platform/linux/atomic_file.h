// A file that comes into being whole: it is written without a name, or under a hidden one, and then put in its place.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/linux/unique_fd.h"

namespace plimo {

// What a path leads to when something is to be written there.
struct WriteTarget {
  std::string path;  // behind all symbolic links, so that a link stays one
  bool exists = false;
  struct stat status {};  // of what stands there
};

// False, with errno, where the path cannot be followed; a missing file in an existing folder can.
bool findWriteTarget(std::string_view path, WriteTarget& target);

// True for a file that may not be written: one without any permission to write, root or not.
bool isReadOnly(const std::string& path, const struct stat& status);

class AtomicFile {
 public:
  // A file without a name leaves nothing behind, whatever happens to the program, but not every file system has such;
  // there, and when told so, it has a hidden name until it is placed.
  enum class Way { unnamed, hidden };

  explicit AtomicFile(Way way = Way::unnamed) : way_(way) {}
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  ~AtomicFile();

  // Each returns false on failure, with errno.

  // Begins a file that will stand at `path` (behind links).
  bool create(const std::string& path);
  bool write(std::string_view bytes);
  // Told of bytes that the kernel has put behind the end; they count as written.
  void grew(off_t bytes);
  // Waits until the disk has all but the last few megabytes, so that whoever tells how far it is tells the truth, and
  // the flush at the end is short.
  bool waitForDisk();
  // Flushes it to the disk and gives it its name, in one step: over what stands there, or not (errno EEXIST).
  bool renameReplace();
  bool renameNoReplace();

  int descriptor() const { return file_.number(); }

 private:
  bool createHidden();
  bool linkHidden();
  void syncFolder();

  Way way_;
  UniqueFd folder_;
  UniqueFd file_;
  off_t there_ = 0;   // bytes that have been waited for
  off_t sent_ = 0;    // bytes on their way to the disk
  off_t unsent_ = 0;  // bytes written behind them
  std::string name_;
  std::string hidden_;  // the hidden name it has now; empty: none
};

}  // namespace plimo
