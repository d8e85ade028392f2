#include "platform/linux/temporary_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "platform/linux/directory_lister.h"
#include "platform/linux/unique_fd.h"
#include "platform/shared/temporary_name.h"

namespace plimo {

namespace {

void removeIfLeft(int folder, const char* name) {
  constexpr int flags = O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC;
  struct stat status {};
  if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISREG(status.st_mode)) return;
  UniqueFd file(::openat(folder, name, O_RDONLY | flags));
  if (!file && errno == EACCES) file = UniqueFd(::openat(folder, name, O_WRONLY | flags));
  if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != ::geteuid()) return;
  if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) ::unlinkat(folder, name, 0);
}

}  // namespace

std::string makeTemporaryName() { return makeTemporaryName(static_cast<std::uint32_t>(::getpid())); }

// Waits for a process that is about to remove the file.
void lockTemporary(int file) {
  while (::flock(file, LOCK_EX) != 0 && errno == EINTR) continue;
}

void removeLeftoversIn(int folder) {
  const UniqueFd directory = openDirectory(folder, ".");
  ListedNames names;
  const ListingFilter filter{.acceptFile = isTemporaryName, .folders = false, .linkedFolders = false, .skipFolder = {}};
  if (!directory || !listDirectory(directory.get(), filter, names)) return;
  for (const std::string_view name : names.files()) removeIfLeft(folder, std::string(name).c_str());
}

}  // namespace plimo
