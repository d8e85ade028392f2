#include "platform/linux/directory_lister.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace plimo {

namespace {

enum class Kind { file, folder, other };

Kind kindOf(mode_t mode) { return S_ISREG(mode) ? Kind::file : S_ISDIR(mode) ? Kind::folder : Kind::other; }

// Calls fstatat(2) only if d_type does not say it: for links, and on file systems without d_type.
Kind kindOf(int folder, const char* name, unsigned char type, const ListingFilter& filter) {
  if (type == DT_REG) return Kind::file;
  if (type == DT_DIR) return Kind::folder;
  if (type != DT_LNK && type != DT_UNKNOWN) return Kind::other;
  struct stat status {};
  if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return Kind::other;
  if (!S_ISLNK(status.st_mode)) return kindOf(status.st_mode);
  if (::fstatat(folder, name, &status, 0) != 0) return Kind::other;
  const Kind kind = kindOf(status.st_mode);
  return kind == Kind::folder && !filter.linkedFolders ? Kind::other : kind;
}

}  // namespace

UniqueDir openDirectory(int parent, const char* path, bool followLink) {
  const int flags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
  const int fd = ::openat(parent, path, flags);
  if (fd < 0) return nullptr;
  UniqueDir directory(::fdopendir(fd));
  if (!directory) {
    const int error = errno;
    ::close(fd);
    errno = error;
  }
  return directory;
}

bool listDirectory(DIR& directory, const ListingFilter& filter, ListedNames& names) {
  names.clear();
  const int fd = ::dirfd(&directory);
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(&directory);
    if (entry == nullptr) break;
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    if (entry->d_type == DT_DIR && !filter.folders) continue;
    const bool accepted = !filter.acceptFile || filter.acceptFile(name);
    // Resolving a link takes a system call, so unwanted links are skipped first.
    if (!accepted && (entry->d_type == DT_REG || (entry->d_type == DT_LNK && !filter.linkedFolders))) continue;
    const Kind kind = kindOf(fd, entry->d_name, entry->d_type, filter);
    if (kind == Kind::file && accepted) names.addFile(name);
    if (kind == Kind::folder && filter.folders && !(filter.skipFolder && filter.skipFolder(name)))
      names.addFolder(name);
  }
  if (errno != 0) return false;
  names.sort();
  return true;
}

}  // namespace plimo
