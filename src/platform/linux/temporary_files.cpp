#include "platform/linux/temporary_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <string>
#include <string_view>

#include "platform/linux/directory_lister.h"
#include "platform/linux/unique_fd.h"

namespace plimo {

namespace {

constexpr std::string_view prefix = ".plimo-";
constexpr std::string_view suffix = ".tmp";

// True for prefix, digits, "-", digits, suffix: exactly the names that makeTemporaryName makes.
bool isTemporaryName(std::string_view name) {
  if (!name.starts_with(prefix) || !name.ends_with(suffix)) return false;
  name.remove_prefix(prefix.size());
  if (name.size() < suffix.size()) return false;
  name.remove_suffix(suffix.size());
  const auto isNumber = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  const std::size_t dash = name.find('-');
  return dash != std::string_view::npos && isNumber(name.substr(0, dash)) && isNumber(name.substr(dash + 1));
}

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

std::string makeTemporaryName() {
  static std::atomic<unsigned> count{0};
  return std::string(prefix) + std::to_string(::getpid()) + "-" + std::to_string(count++) + std::string(suffix);
}

// Waits for a process that is about to remove the file.
void lockTemporary(int file) {
  while (::flock(file, LOCK_EX) != 0 && errno == EINTR) continue;
}

void removeLeftoversIn(int folder) {
  const UniqueFd directory = openDirectory(folder, ".");
  DirectoryLister lister;
  const ListingFilter filter{.acceptFile = isTemporaryName, .folders = false, .linkedFolders = false};
  if (!directory || !lister.list(directory.get(), filter)) return;
  for (const std::string_view name : lister.files()) removeIfLeft(folder, std::string(name).c_str());
}

}  // namespace plimo
