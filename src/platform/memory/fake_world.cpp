// The world that stands in memory: how it is built, and how a path finds its way through it.
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {

namespace {

constexpr std::string_view separator = "\\";

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

char upper(char letter) { return upperAscii({&letter, 1}).front(); }

[[noreturn]] void misplaced(std::string_view path) {
  throw std::invalid_argument("no place for \"" + std::string(path) + "\"");
}

}  // namespace

FakeFileSystem::FakeFileSystem() {
  addDrive('C', DriveType::fixed);
  setCurrentDirectory("C:\\Plimo");
}

FakeFileSystem::Disk& FakeFileSystem::diskOf(char letter) {
  if (!isLetter(letter)) misplaced({&letter, 1});
  Disk& disk = disks_[upper(letter)];
  if (!disk.root) disk.root = std::make_unique<FakeNode>(FakeNode::Kind::folder, "", "");
  return disk;
}

void FakeFileSystem::addDrive(char letter, DriveType type, bool ready) {
  diskOf(letter).ready = ready;
  letter = upper(letter);
  const auto entry =
      std::find_if(table_.begin(), table_.end(), [&](const TableEntry& e) { return e.letter == letter; });
  if (entry == table_.end()) {
    table_.push_back({letter, type});
  } else {
    entry->type = type;
  }
}

void FakeFileSystem::removeDrives() { table_.clear(); }

void FakeFileSystem::setReady(char letter, bool ready) { diskOf(letter).ready = ready; }

void FakeFileSystem::setDiskFull(char letter, bool full) { diskOf(letter).full = full; }

void FakeFileSystem::setCurrentDirectory(std::string_view path) {
  const auto way = route(path);
  if (!way) misplaced(path);
  make(FakeNode::Kind::folder, path);
  std::string directory = std::string(1, way->letter) + ":\\";
  for (const std::string& name : way->names) directory = join(directory, name);
  currentDirectory_ = std::move(directory);
}

void FakeFileSystem::addFolder(std::string_view path, FolderFlags flags) {
  make(FakeNode::Kind::folder, path).folderFlags = flags;
}

void FakeFileSystem::addFile(std::string_view path, std::uint64_t size, FileFlags flags) {
  FakeNode& file = make(FakeNode::Kind::file, path);
  file.content = nullptr;
  file.size = size;
  file.fileFlags = flags;
}

void FakeFileSystem::addTextFile(std::string_view path, std::string content, FileFlags flags) {
  FakeNode& file = make(FakeNode::Kind::file, path);
  file.size = content.size();
  file.content = std::make_shared<const std::string>(std::move(content));
  file.fileFlags = flags;
}

bool FakeFileSystem::remove(std::string_view path) {
  const Place at = place(path);
  if (!at.node || !at.folder) return false;
  at.folder->remove(*at.node);
  return true;
}

std::optional<std::string> FakeFileSystem::fileContent(std::string_view path) const {
  const Place at = place(path);
  if (!at.node || at.node->isFolder()) return std::nullopt;
  return at.node->content ? *at.node->content : std::string(at.node->size, '\0');
}

std::optional<std::string> FakeFileSystem::spelledName(std::string_view path) const {
  const Place at = place(path);
  if (!at.node) return std::nullopt;
  return at.node->name();
}

std::optional<FileFlags> FakeFileSystem::fileFlags(std::string_view path) const {
  const Place at = place(path);
  if (!at.node || at.node->isFolder()) return std::nullopt;
  return at.node->fileFlags;
}

void FakeFileSystem::failAt(std::size_t n, ErrorNumber error) {
  failIn_ = n;
  failure_ = error;
}

void FakeFileSystem::step(std::string_view path) {
  ++steps_;
  if (failIn_ != 0 && --failIn_ == 0) throw RuntimeError(failure_, std::string(path));
}

std::optional<FakeFileSystem::ParsedPath> FakeFileSystem::route(std::string_view path) const {
  if (path.empty()) return std::nullopt;
  ParsedPath way;
  const bool drive = path.size() >= 2 && isLetter(path[0]) && path[1] == ':';
  const bool rooted = path.substr(drive ? 2 : 0).starts_with(separator);
  if (!rooted && !currentDirectory_.empty() && (!drive || upper(path[0]) == upper(currentDirectory_[0]))) {
    way = *route(currentDirectory_);
  }
  if (drive) {
    way.letter = upper(path[0]);
    path.remove_prefix(2);
  } else if (!currentDirectory_.empty()) {
    way.letter = upper(currentDirectory_[0]);
  } else {
    return std::nullopt;
  }
  way.folder = path.empty() || path.ends_with(separator);
  for (const std::string_view name : split(path, '\\')) {
    if (name.empty() || name == ".") continue;
    if (name == "..") {
      if (!way.names.empty()) way.names.pop_back();
    } else {
      way.names.emplace_back(name);
    }
  }
  return way;
}

FakeFileSystem::Place FakeFileSystem::place(std::string_view path) const {
  Place at;
  const auto way = route(path);
  if (!way) return at;
  const auto disk = disks_.find(way->letter);
  if (disk == disks_.end()) return at;
  at.disk = &disk->second;
  at.node = disk->second.root.get();
  for (const std::string& name : way->names) {
    at.folder = at.node && at.node->isFolder() ? at.node : nullptr;
    at.node = at.folder ? at.folder->find(name) : nullptr;
    at.name = name;
  }
  if (way->folder && at.node && !at.node->isFolder()) at.node = nullptr;
  return at;
}

FakeFileSystem::Place FakeFileSystem::seen(std::string_view path) const {
  Place at = place(path);
  if (at.disk && !at.disk->ready) at.folder = at.node = nullptr;
  return at;
}

FakeNode* FakeFileSystem::seenFile(std::string_view path) const {
  FakeNode* node = seen(path).node;
  return node && !node->isFolder() ? node : nullptr;
}

FakeNode* FakeFileSystem::seenFolder(std::string_view path) const {
  FakeNode* node = seen(path).node;
  return node && node->isFolder() ? node : nullptr;
}

FakeNode& FakeFileSystem::make(FakeNode::Kind kind, std::string_view path) {
  const auto way = route(path);
  if (!way || (kind == FakeNode::Kind::file && (way->names.empty() || way->folder))) misplaced(path);
  FakeNode* node = diskOf(way->letter).root.get();
  for (std::size_t i = 0; i < way->names.size(); ++i) {
    if (!node->isFolder()) misplaced(path);
    const bool last = i + 1 == way->names.size();
    FakeNode* next = node->find(way->names[i]);
    node = next ? next : &node->add(last ? kind : FakeNode::Kind::folder, way->names[i]);
  }
  if (node->isFolder() != (kind == FakeNode::Kind::folder)) misplaced(path);
  return *node;
}

}  // namespace plimo
