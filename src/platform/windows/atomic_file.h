// Writes a file atomically: into a temporary file in the same folder, which is then flushed to the disk and renamed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"

namespace plimo {

// Renames an open file, which has DELETE access; false on failure, with the thread's last error.
//
// With `replace`, an existing file is replaced in one step, even if other programs have it open and share its deletion
// (POSIX semantics, Windows 10 and NTFS; otherwise such a file is in use). ReplaceFile would keep more of the old file,
// but takes several steps: a killed process could leave no file under the name. With `ignoreReadOnly` the old file may
// be read-only.
bool renameOpenFile(HANDLE file, std::string_view to, bool replace, bool ignoreReadOnly);

class AtomicFile {
 public:
  AtomicFile() = default;
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  ~AtomicFile();

  // All of these return false on failure, with the thread's last error.

  // Creates the temporary file for this path.
  bool create(std::string_view path);
  // Reserves room on the disk, so that it is known at once if there is not enough.
  bool reserve(std::uint64_t bytes);
  bool write(std::string_view bytes);
  // The attributes, and for a copy the times, of the finished file.
  void setAttributes(DWORD attributes) { attributes_ = attributes; }
  void setTimes(const FILETIME& accessed, const FILETIME& written);
  // Flush to the disk, then rename in one step: over an existing file, or failing with ERROR_ALREADY_EXISTS if there is
  // one.
  bool renameReplace();
  bool renameNoReplace();

 private:
  bool finish(bool replace);

  UniqueHandle file_;
  std::string path_;
  DWORD attributes_ = FILE_ATTRIBUTE_ARCHIVE;
  FILETIME accessed_{};
  FILETIME written_{};
};

// Removes the temporary files in a folder that no process has open. Errors are ignored.
void removeLeftoversIn(std::string_view folder);

}  // namespace plimo
