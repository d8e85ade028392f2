#include "platform/linux/directory_lister.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <array>

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

void add(int directory, const char* entryName, unsigned char type, const ListingFilter& filter, ListedNames& names) {
  const std::string_view name = entryName;
  if (name == "." || name == "..") return;
  if (type == DT_DIR && !filter.folders) return;
  const bool accepted = !filter.acceptFile || filter.acceptFile(name);
  // Resolving a link takes a system call, so unwanted links are skipped first.
  if (!accepted && (type == DT_REG || (type == DT_LNK && !filter.linkedFolders))) return;
  const Kind kind = kindOf(directory, entryName, type, filter);
  if (kind == Kind::file && accepted) names.addFile(name);
  if (kind == Kind::folder && filter.folders && !(filter.skipFolder && filter.skipFolder(name))) names.addFolder(name);
}

}  // namespace

UniqueFd openDirectory(int parent, const char* path, bool followLink) {
  const int flags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
  return UniqueFd(::openat(parent, path, flags));
}

bool listDirectory(int directory, const ListingFilter& filter, ListedNames& names) {
  names.clear();
  // Not readdir(3): fdopendir(3) takes three more system calls for each folder.
  alignas(dirent64) std::array<char, 64 * 1024> buffer;
  for (;;) {
    const ssize_t filled = ::getdents64(directory, buffer.data(), buffer.size());
    if (filled < 0) return false;
    if (filled == 0) break;
    for (ssize_t offset = 0; offset < filled;) {
      const auto& entry = *reinterpret_cast<const dirent64*>(buffer.data() + offset);
      offset += entry.d_reclen;
      add(directory, entry.d_name, entry.d_type, filter, names);
    }
  }
  names.sort();
  return true;
}

}  // namespace plimo
