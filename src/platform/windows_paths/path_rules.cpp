#include "platform/windows_paths/path_rules.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "platform/windows_paths/wtf8.h"

namespace plimo::windows_paths {

namespace {

constexpr std::string_view separators = "\\/";
constexpr std::string_view extendedPrefix = "\\\\?\\";
constexpr std::string_view extendedServerPrefix = "\\\\?\\UNC\\";
constexpr std::size_t longestName = 255;  // in UTF-16 units

bool isSeparator(char c) { return c == '\\' || c == '/'; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool hasDrive(std::string_view path) { return path.size() >= 2 && isLetter(path[0]) && path[1] == ':'; }

bool startsWithFolded(std::string_view text, std::string_view start) {
  return text.size() >= start.size() && upperAscii(text.substr(0, start.size())) == upperAscii(start);
}

// The components, without the empty ones.
std::vector<std::string_view> components(std::string_view path) {
  std::vector<std::string_view> names;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(separators), path.size());
    if (end > 0) names.push_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return names;
}

// Nullopt if the path does not begin with two separators, a server and a share. The rest begins after the share.
struct Share {
  std::string root;
  std::string_view rest;
};
std::optional<Share> shareOf(std::string_view path) {
  if (path.size() < 2 || !isSeparator(path[0]) || !isSeparator(path[1])) return std::nullopt;
  const std::size_t serverEnd = path.find_first_of(separators, 2);
  if (serverEnd == std::string_view::npos || serverEnd == 2) return std::nullopt;
  const std::string_view server = path.substr(2, serverEnd - 2);
  if (server == "." || server == "?") return std::nullopt;  // devices
  const std::size_t share = path.find_first_not_of(separators, serverEnd);
  if (share == std::string_view::npos) return std::nullopt;
  const std::size_t shareEnd = std::min(path.find_first_of(separators, share), path.size());
  return Share{"\\\\" + std::string(server) + "\\" + std::string(path.substr(share, shareEnd - share)),
               path.substr(shareEnd)};
}

// The length of the root of an absolute path.
std::size_t rootLength(std::string_view absolute) {
  if (hasDrive(absolute)) return std::min<std::size_t>(absolute.size(), 3);
  const auto share = shareOf(absolute);
  return share ? share->root.size() : 0;
}

// Appends the components to a root, which ".." does not leave.
std::string resolve(const std::string& root, std::string_view folder, std::string_view path) {
  std::vector<std::string_view> names;
  for (const std::string_view part : {folder, path}) {
    for (const std::string_view name : components(part)) {
      if (name == ".") continue;
      if (name != "..") {
        names.push_back(name);
      } else if (!names.empty()) {
        names.pop_back();
      }
    }
  }
  std::string result = root;
  for (const std::string_view name : names) result = joinPath(result, name);
  return result;
}

}  // namespace

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && !isSeparator(path.back())) path += '\\';
  return path.append(name);
}

std::string_view baseName(std::string_view path) {
  return path.substr(path.find_last_of(separators) + 1);  // npos + 1 is 0
}

std::string parentPath(std::string_view path) {
  const auto share = shareOf(path);
  if (share && components(share->rest).empty()) return std::string(path);
  path.remove_suffix(baseName(path).size());
  while (endsInSeparator(path)) path.remove_suffix(1);
  return path.size() == 2 && hasDrive(path) ? std::string(path) + "\\" : std::string(path);
}

bool endsInSeparator(std::string_view path) { return !path.empty() && isSeparator(path.back()); }

bool isAbsolutePath(std::string_view path) {
  return (hasDrive(path) && path.size() > 2 && isSeparator(path[2])) || shareOf(path);
}

std::optional<std::string> absolutePath(std::string_view path, std::string_view currentDirectory) {
  if (startsWithFolded(path, extendedPrefix)) {
    const std::string plain = plainPath(path);
    if (plain == path) return std::nullopt;
    return absolutePath(plain, currentDirectory);
  }
  if (path.empty()) return std::nullopt;
  if (const auto share = shareOf(path)) return resolve(share->root, {}, share->rest);
  if (path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1])) return std::nullopt;
  const std::size_t currentRoot = rootLength(currentDirectory);
  const bool drive = hasDrive(path);
  const bool sameDrive = !drive || startsWithFolded(currentDirectory, path.substr(0, 2));
  if (currentRoot == 0 && !drive) return std::nullopt;
  const std::string root =
      drive ? upperAscii(path.substr(0, 1)) + ":\\" : std::string(currentDirectory.substr(0, currentRoot));
  path.remove_prefix(drive ? 2 : 0);
  const bool below = sameDrive && !path.starts_with('\\') && !path.starts_with('/');
  return resolve(root, below ? currentDirectory.substr(currentRoot) : std::string_view(), path);
}

bool isRootPath(std::string_view absolute) {
  const std::size_t length = rootLength(absolute);
  return length != 0 && length == absolute.size();
}

bool folderContains(std::string_view folder, std::string_view absolute) {
  const std::string parent = foldCase(folder);
  const std::string path = foldCase(absolute);
  return path.starts_with(parent) &&
         (path.size() == parent.size() || endsInSeparator(parent) || isSeparator(path[parent.size()]));
}

std::string extendedPath(std::string_view absolute) {
  const bool drive = hasDrive(absolute);
  std::string path(drive ? extendedPrefix : extendedServerPrefix);
  const std::size_t names = path.size() + (drive ? 2 : 0);
  path += drive ? absolute : absolute.substr(2);
  for (std::size_t i = names; i < path.size(); ++i) {
    if (path[i] == ':' || path[i] == '\0') path[i] = '?';
  }
  return path;
}

std::string plainPath(std::string_view extended) {
  if (startsWithFolded(extended, extendedServerPrefix)) {
    return "\\\\" + std::string(extended.substr(extendedServerPrefix.size()));
  }
  const bool prefixed = startsWithFolded(extended, extendedPrefix);
  if (prefixed && hasDrive(extended.substr(extendedPrefix.size()))) {
    return std::string(extended.substr(extendedPrefix.size()));
  }
  return std::string(extended);
}

bool isAllowedName(std::string_view name) {
  if (name.empty() || name == "." || name == "..") return false;
  const auto isForbidden = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || std::string_view("\"*/:<>?\\|").find(c) != std::string_view::npos;
  };
  if (std::any_of(name.begin(), name.end(), isForbidden)) return false;
  const std::u16string units = wtf8ToUtf16(name, u'\0');
  if (units.size() > longestName || units.find(u'\0') != std::u16string::npos) return false;
  std::string device = upperAscii(trimBlanks(prefixBefore(name, '.')));
  constexpr std::array<std::string_view, 6> devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  if (std::find(devices.begin(), devices.end(), device) != devices.end()) return false;
  if (!device.starts_with("COM") && !device.starts_with("LPT")) return true;
  device.erase(0, 3);
  // The superscript digits are digits to the system, too.
  constexpr std::array<std::string_view, 3> superscripts = {"\u00B9", "\u00B2", "\u00B3"};
  const bool digit = device.size() == 1 && device[0] >= '1' && device[0] <= '9';
  return !digit && std::find(superscripts.begin(), superscripts.end(), device) == superscripts.end();
}

}  // namespace plimo::windows_paths
