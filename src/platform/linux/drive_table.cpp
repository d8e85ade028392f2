#include "platform/linux/drive_table.h"

#include <dirent.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string_view>

#include "platform/linux/path_text.h"

namespace plimo {

namespace {

struct Mount {
  std::string device;  // major:minor; the same for all mounts of one file system
  std::string folder;
  std::string type;
  std::string source;
};

// The kernel writes spaces, tabs, newlines and backslashes as a backslash and three octal digits.
std::string unescape(std::string_view text) {
  const auto octal = [](char c) { return c >= '0' && c <= '7'; };
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size() && octal(text[i + 1]) && octal(text[i + 2]) && octal(text[i + 3])) {
      plain += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

// Fields: id, parent, device, root, folder, options, any number of others, "-", type, source, options.
std::optional<Mount> parseMount(const std::string& line) {
  std::istringstream words(line);
  const std::vector<std::string> fields{std::istream_iterator<std::string>(words), {}};
  if (fields.size() < 6) return std::nullopt;
  const auto dash = std::find(fields.begin() + 6, fields.end(), "-");
  if (fields.end() - dash < 3) return std::nullopt;
  return Mount{fields[2], normalizePath(unescape(fields[4])), dash[1], unescape(dash[2])};
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

// The device's name in /sys. Links in /dev, as for encrypted disks, are resolved.
std::string deviceName(const std::string& source) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(source.c_str(), nullptr), &std::free);
  return std::string(baseName(real ? std::string_view(real.get()) : std::string_view(source)));
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
  const std::string name = deviceName(mount.source);
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
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(home.c_str(), nullptr), &std::free);
  const std::string realHome = real ? real.get() : home;

  std::vector<std::string> devices;
  std::ifstream lines(paths.mountInfo);
  for (std::string line; std::getline(lines, line);) {
    const auto mount = parseMount(line);
    if (!mount || !mount->source.starts_with("/dev/") || mount->source == "/dev/fuse") continue;
    // Further mounts, bind mounts and subvolumes of a device are not further drives.
    if (std::find(devices.begin(), devices.end(), mount->device) != devices.end()) continue;
    if (!mount->folder.starts_with('/') || isNonFolder(mount->folder)) continue;
    devices.push_back(mount->device);
    if (isSystemFolder(mount->folder) || folderContains(mount->folder, realHome)) continue;
    if (table.back().letter == 'Z') break;
    table.push_back({static_cast<char>(table.back().letter + 1), typeOf(*mount, paths), mount->folder});
  }
  return table;
}

}  // namespace plimo
