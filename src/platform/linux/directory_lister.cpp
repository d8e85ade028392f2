#include "platform/linux/directory_lister.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>

#include "base/text.h"

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

UniqueFd openDirectory(int parent, const char* path, bool followLink) {
  const int flags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC | (followLink ? 0 : O_NOFOLLOW);
  return UniqueFd(::openat(parent, path, flags));
}

void DirectoryLister::add(Names& names, std::string_view name) {
  Name entry{text_.size(), name.size(), 0, 0};
  text_.append(name);
  entry.key = text_.size();
  appendFolded(text_, name);
  entry.keyLength = text_.size() - entry.key;
  names.found.push_back(entry);
}

void DirectoryLister::sort(Names& names) const {
  const std::string_view text = text_;
  std::sort(names.found.begin(), names.found.end(), [text](const Name& left, const Name& right) {
    const int order = text.substr(left.key, left.keyLength).compare(text.substr(right.key, right.keyLength));
    if (order != 0) return order < 0;
    return text.substr(left.offset, left.length) < text.substr(right.offset, right.length);
  });
  names.sorted.clear();
  for (const Name& name : names.found) names.sorted.push_back(text.substr(name.offset, name.length));
}

void DirectoryLister::addEntry(int directory, const char* entryName, unsigned char type, const ListingFilter& filter) {
  const std::string_view name = entryName;
  if (name == "." || name == "..") return;
  if (type == DT_DIR && !filter.folders) return;
  const bool accepted = !filter.acceptFile || filter.acceptFile(name);
  // Resolving a link takes a system call, so unwanted links are skipped first.
  if (!accepted && (type == DT_REG || (type == DT_LNK && !filter.linkedFolders))) return;
  const Kind kind = kindOf(directory, entryName, type, filter);
  if (kind == Kind::file && accepted) add(files_, name);
  if (kind == Kind::folder && filter.folders) add(folders_, name);
}

bool DirectoryLister::list(int directory, const ListingFilter& filter) {
  text_.clear();
  files_.found.clear();
  folders_.found.clear();
  // Not readdir(3): fdopendir(3) takes three more system calls for each folder.
  alignas(dirent64) std::array<char, 64 * 1024> buffer;
  for (;;) {
    const ssize_t filled = ::getdents64(directory, buffer.data(), buffer.size());
    if (filled < 0) return false;
    if (filled == 0) break;
    for (ssize_t offset = 0; offset < filled;) {
      const auto& entry = *reinterpret_cast<const dirent64*>(buffer.data() + offset);
      offset += entry.d_reclen;
      addEntry(directory, entry.d_name, entry.d_type, filter);
    }
  }
  sort(files_);
  sort(folders_);
  return true;
}

}  // namespace plimo
