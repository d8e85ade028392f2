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
  std::string device;  // major:minor, the same for every place where one file system is mounted
  std::string folder;
  std::string type;
  std::string source;
};

// Blanks, tabs, line ends and backslashes are written as a backslash and three octal digits.
std::string unescaped(std::string_view text) {
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
  return Mount{fields[2], tidyPath(unescaped(fields[4])), dash[1], unescaped(dash[2])};
}

bool isSystemFolder(std::string_view folder) {
  constexpr std::array<std::string_view, 4> users = {"/run/media", "/var/run/media", "/var/mnt", "/var/media"};
  constexpr std::array<std::string_view, 18> systems = {"/boot", "/efi",     "/usr",    "/var", "/etc",  "/opt",
                                                        "/tmp",  "/root",    "/nix",    "/gnu", "/snap", "/run",
                                                        "/proc", "/sysroot", "/ostree", "/sys", "/dev",  "/recovery"};
  const auto holds = [&](std::string_view outer) { return liesIn(folder, outer); };
  if (std::any_of(users.begin(), users.end(), holds)) return false;
  return folder == "/" || std::any_of(systems.begin(), systems.end(), holds);
}

bool isFile(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

// The device's name in /sys; what a link in /dev leads to, as for encrypted disks.
std::string deviceName(const std::string& source) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(source.c_str(), nullptr), &std::free);
  return std::string(lastPiece(real ? std::string_view(real.get()) : std::string_view(source)));
}

bool startsWithOne(const std::string& file) {
  std::ifstream stream(file);
  return stream.get() == '1';
}

// The flag stands at the whole disk: for a partition one folder up, for a mapped device at the disks below it.
bool isRemovable(const std::string& folder, int depth = 4) {
  if (isFile(folder + "/partition")) return startsWithOne(folder + "/../removable");
  if (startsWithOne(folder + "/removable")) return true;
  if (depth == 0) return false;
  const std::string slaves = folder + "/slaves";
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(slaves.c_str()), &::closedir);
  while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
    if (entry->d_name[0] != '.' && isRemovable(slaves + "/" + entry->d_name, depth - 1)) return true;
  }
  return false;
}

DriveType typeOf(const Mount& mount, const SystemPaths& sources) {
  const std::string name = deviceName(mount.source);
  if (mount.type == "iso9660" || name.starts_with("sr")) return DriveType::cdrom;
  return isRemovable(sources.blockDevices + "/" + name) ? DriveType::removable : DriveType::fixed;
}

std::string homeFolder(const SystemPaths& sources) {
  if (!sources.home.empty()) return tidyPath(sources.home);
  if (const char* home = std::getenv("HOME"); home && *home) return tidyPath(home);
  const passwd* account = ::getpwuid(::getuid());
  return account ? tidyPath(account->pw_dir) : "/";
}

}  // namespace

std::vector<DriveRoot> defaultDriveTable(const SystemPaths& sources) {
  const std::string home = homeFolder(sources);
  std::vector<DriveRoot> table = {{'C', DriveType::fixed, home}};
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(home.c_str(), nullptr), &std::free);
  const std::string realHome = real ? real.get() : home;

  std::vector<std::string> devices;
  std::ifstream lines(sources.mountInfo);
  for (std::string line; std::getline(lines, line);) {
    const auto mount = parseMount(line);
    if (!mount || !mount->source.starts_with("/dev/") || mount->source == "/dev/fuse") continue;
    // A second place of one device, or a part of it bound elsewhere, is no further drive.
    if (std::find(devices.begin(), devices.end(), mount->device) != devices.end()) continue;
    if (!mount->folder.starts_with('/') || isFile(mount->folder)) continue;
    devices.push_back(mount->device);
    if (isSystemFolder(mount->folder) || liesIn(realHome, mount->folder)) continue;
    if (table.back().letter == 'Z') break;
    table.push_back({static_cast<char>(table.back().letter + 1), typeOf(*mount, sources), mount->folder});
  }
  return table;
}

}  // namespace plimo
