#include "platform/linux/drive_table.h"

#include <dirent.h>
#include <mntent.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string_view>

#include "platform/linux/path_text.h"

namespace plimo {

namespace {

struct Mount {
  std::string device;
  std::string folder;
  std::string type;
};

std::string resolveLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
  return resolved ? resolved.get() : path;
}

// The mounts of devices, in the order of mounting.
std::vector<Mount> deviceMounts(const std::string& mountTable) {
  std::vector<Mount> mounts;
  const std::unique_ptr<FILE, int (*)(FILE*)> table(::setmntent(mountTable.c_str(), "r"), &::endmntent);
  mntent entry{};
  std::array<char, 16 * 1024> buffer;  // for one line
  while (table && ::getmntent_r(table.get(), &entry, buffer.data(), static_cast<int>(buffer.size())) != nullptr) {
    const std::string source = entry.mnt_fsname;
    if (!source.starts_with("/dev/") || source == "/dev/fuse" || entry.mnt_dir[0] != '/') continue;
    // Encrypted disks, for example, are mounted by a link: two links may name one device.
    mounts.push_back({resolveLinks(source), normalizePath(entry.mnt_dir), entry.mnt_type});
  }
  return mounts;
}

bool isSystemFolder(std::string_view folder) {
  constexpr std::array<std::string_view, 4> users = {"/run/media", "/var/run/media", "/var/mnt", "/var/media"};
  constexpr std::array<std::string_view, 18> systems = {"/boot", "/efi",     "/usr",    "/var", "/etc",  "/opt",
                                                        "/tmp",  "/root",    "/nix",    "/gnu", "/snap", "/run",
                                                        "/proc", "/sysroot", "/ostree", "/sys", "/dev",  "/recovery"};
  const auto contains = [&](std::string_view parent) { return folderContains(parent, folder); };
  if (std::any_of(users.begin(), users.end(), contains)) return false;
  return folder == "/" || std::any_of(systems.begin(), systems.end(), contains);
}

bool isNonFolder(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool isFlagSet(const std::string& file) {
  std::ifstream stream(file);
  return stream.get() == '1';
}

// Only whole disks have the flag: a partition's is in the parent folder, a mapped device's is that of its disks.
bool isRemovable(const std::string& folder, int depth = 4) {
  if (isNonFolder(folder + "/partition")) return isFlagSet(folder + "/../removable");
  if (isFlagSet(folder + "/removable")) return true;
  if (depth == 0) return false;
  const std::string slaves = folder + "/slaves";
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(slaves.c_str()), &::closedir);
  while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
    if (entry->d_name[0] != '.' && isRemovable(slaves + "/" + entry->d_name, depth - 1)) return true;
  }
  return false;
}

DriveType typeOf(const Mount& mount, const SystemPaths& paths) {
  const std::string name(baseName(mount.device));
  if (mount.type == "iso9660" || name.starts_with("sr")) return DriveType::cdrom;
  return isRemovable(paths.blockDevices + "/" + name) ? DriveType::removable : DriveType::fixed;
}

std::string homeFolder(const SystemPaths& paths) {
  if (!paths.home.empty()) return normalizePath(paths.home);
  if (const char* home = std::getenv("HOME"); home && *home) return normalizePath(home);
  const passwd* account = ::getpwuid(::getuid());
  return account ? normalizePath(account->pw_dir) : "/";
}

}  // namespace

std::vector<DriveRoot> defaultDriveTable(const SystemPaths& paths) {
  const std::string home = homeFolder(paths);
  std::vector<DriveRoot> table = {{'C', DriveType::fixed, home}};
  const std::string resolvedHome = resolveLinks(home);
  std::vector<std::string> devices;
  for (const Mount& mount : deviceMounts(paths.mounts)) {
    // Further mounts, bind mounts and subvolumes of a device are not further drives.
    if (std::find(devices.begin(), devices.end(), mount.device) != devices.end() || isNonFolder(mount.folder)) continue;
    devices.push_back(mount.device);
    if (isSystemFolder(mount.folder) || folderContains(mount.folder, resolvedHome)) continue;
    if (table.back().letter == 'Z') break;
    table.push_back({static_cast<char>(table.back().letter + 1), typeOf(mount, paths), mount.folder});
  }
  return table;
}

std::vector<DriveRoot> DriveRoots::all() const {
  return fixedDrives_ ? *fixedDrives_ : defaultDriveTable(systemPaths_);
}

bool DriveRoots::isRoot(std::string_view folder) const {
  struct stat status {};
  const bool exists = ::stat(std::string(folder).c_str(), &status) == 0;
  const std::vector<DriveRoot> drives = all();
  return std::any_of(drives.begin(), drives.end(), [&](const DriveRoot& drive) {
    if (normalizePath(drive.root) == normalizePath(folder)) return true;
    struct stat root {};
    return exists && ::stat(drive.root.c_str(), &root) == 0 && root.st_dev == status.st_dev &&
           root.st_ino == status.st_ino;
  });
}

}  // namespace plimo
