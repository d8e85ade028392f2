#include "prefs/winamp_folder.h"

#include "base/text.h"

namespace plimo {

namespace {

constexpr std::string_view winampName = "winamp.exe";

// No machine has a longer path, in bytes. A damaged path.kvx may name one with a million levels.
constexpr std::size_t longestPath = 32768;

bool isWinamp(std::string_view name) { return upperAscii(name) == "WINAMP.EXE"; }

// The parent folder; empty at the top.
std::string above(FileSystemObject& files, const std::string& folder) {
  std::string parent = files.folderOf(folder);
  return parent == folder ? std::string() : parent;
}

}  // namespace

std::optional<std::string> winampIn(FileSystemObject& files, std::string_view folder) {
  for (const std::string& name : files.contents(folder).files) {
    if (isWinamp(files.fileName(files.shortFilePath(files.join(folder, name))))) return name;
  }
  return std::nullopt;
}

std::string winampPath(FileSystemObject& files, std::string_view folder, std::string_view found) {
  const bool asItIs = files.caseSensitive() && !files.fileExists(files.join(folder, winampName));
  return files.joinAlwaysSeparated(folder, asItIs ? found : winampName);
}

std::optional<std::string> folderOfWinamp(FileSystemObject& files, std::string_view winampPath) {
  std::string folder = files.caseSensitive() ? std::string(winampPath) : upperAscii(winampPath);
  if (isWinamp(files.fileName(folder))) folder = files.folderOf(folder);
  if (folder.size() > longestPath) folder = files.folderOf(folder.substr(0, longestPath));
  while (!folder.empty() && !files.folderExists(folder)) folder = above(files, folder);
  if (folder.empty()) return std::nullopt;
  return folder;
}

char driveHolding(FileSystemObject& files, std::string_view folder) {
  const std::vector<Drive> drives = files.drives();
  for (std::string ancestor(folder); !ancestor.empty(); ancestor = above(files, ancestor)) {
    for (const Drive& drive : drives) {
      if (files.sameFile(drive.root, ancestor)) return drive.letter;
    }
  }
  return 0;
}

}  // namespace plimo
