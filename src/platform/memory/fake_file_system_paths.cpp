// Resolving paths.
#include "base/text.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {

bool FakeFileSystem::isDriveLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

char FakeFileSystem::upperCase(char letter) { return upperAscii({&letter, 1}).front(); }

std::optional<FakeFileSystem::ParsedPath> FakeFileSystem::parsePath(std::string_view path) const {
  if (path.empty()) return std::nullopt;
  ParsedPath parsed;
  const bool drive = path.size() >= 2 && isDriveLetter(path[0]) && path[1] == ':';
  const bool rooted = path.substr(drive ? 2 : 0).starts_with('\\');
  if (!rooted && !currentDirectory_.empty() && (!drive || upperCase(path[0]) == upperCase(currentDirectory_[0]))) {
    parsed = *parsePath(currentDirectory_);
  }
  if (drive) {
    parsed.letter = upperCase(path[0]);
    path.remove_prefix(2);
  } else if (!currentDirectory_.empty()) {
    parsed.letter = upperCase(currentDirectory_[0]);
  } else {
    return std::nullopt;
  }
  parsed.endsInSeparator = path.empty() || path.ends_with('\\');
  for (const std::string_view name : split(path, '\\')) {
    if (name.empty() || name == ".") continue;
    if (name == "..") {
      if (!parsed.names.empty()) parsed.names.pop_back();
    } else {
      parsed.names.emplace_back(name);
    }
  }
  return parsed;
}

FakeFileSystem::Location FakeFileSystem::locate(std::string_view path) const {
  Location location;
  const auto parsed = parsePath(path);
  if (!parsed) return location;
  const auto disk = disks_.find(parsed->letter);
  if (disk == disks_.end()) return location;
  location.disk = &disk->second;
  location.node = disk->second.root.get();
  for (const std::string& name : parsed->names) {
    location.parent = location.node && location.node->isFolder() ? location.node : nullptr;
    location.node = location.parent ? location.parent->find(name) : nullptr;
    location.name = name;
  }
  if (parsed->endsInSeparator && location.node && !location.node->isFolder()) location.node = nullptr;
  return location;
}

FakeFileSystem::Location FakeFileSystem::locateVisible(std::string_view path) const {
  Location location = locate(path);
  if (location.disk && !location.disk->ready) location.parent = location.node = nullptr;
  return location;
}

FakeNode* FakeFileSystem::findFile(std::string_view path) const {
  FakeNode* node = locateVisible(path).node;
  return node && !node->isFolder() ? node : nullptr;
}

FakeNode* FakeFileSystem::findFolder(std::string_view path) const {
  FakeNode* node = locateVisible(path).node;
  return node && node->isFolder() ? node : nullptr;
}

}  // namespace plimo
