// Setting up the fake disks, and injecting failures.
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {

namespace {

[[noreturn]] void throwInvalidPath(std::string_view path) {
  throw std::invalid_argument("no place for \"" + std::string(path) + "\"");
}

}  // namespace

FakeFileSystem::FakeFileSystem() {
  addDrive('C', DriveType::fixed);
  setCurrentDirectory("C:\\Plimo");
}

FakeFileSystem::Disk& FakeFileSystem::diskOf(char letter) {
  if (!isDriveLetter(letter)) throwInvalidPath({&letter, 1});
  Disk& disk = disks_[upperCase(letter)];
  if (!disk.root) disk.root = std::make_unique<FakeNode>(FakeNode::Kind::folder, "", "");
  return disk;
}

void FakeFileSystem::addDrive(char letter, DriveType type, bool ready) {
  diskOf(letter).ready = ready;
  letter = upperCase(letter);
  const auto entry =
      std::find_if(driveTable_.begin(), driveTable_.end(), [&](const DriveEntry& e) { return e.letter == letter; });
  if (entry == driveTable_.end()) {
    driveTable_.push_back({letter, type});
  } else {
    entry->type = type;
  }
}

void FakeFileSystem::removeDrives() { driveTable_.clear(); }

void FakeFileSystem::setReady(char letter, bool ready) { diskOf(letter).ready = ready; }

void FakeFileSystem::setDiskFull(char letter, bool full) { diskOf(letter).full = full; }

void FakeFileSystem::setCurrentDirectory(std::string_view path) {
  const auto parsed = parsePath(path);
  if (!parsed) throwInvalidPath(path);
  create(FakeNode::Kind::folder, path);
  std::string directory = std::string(1, parsed->letter) + ":\\";
  for (const std::string& name : parsed->names) directory = join(directory, name);
  currentDirectory_ = std::move(directory);
}

void FakeFileSystem::addFolder(std::string_view path, FolderFlags flags) {
  create(FakeNode::Kind::folder, path).folderFlags = flags;
}

void FakeFileSystem::addFile(std::string_view path, std::uint64_t size, FileFlags flags) {
  FakeNode& file = create(FakeNode::Kind::file, path);
  file.content = nullptr;
  file.size = size;
  file.fileFlags = flags;
}

void FakeFileSystem::addTextFile(std::string_view path, std::string content, FileFlags flags) {
  FakeNode& file = create(FakeNode::Kind::file, path);
  file.size = content.size();
  file.content = std::make_shared<const std::string>(std::move(content));
  file.fileFlags = flags;
}

bool FakeFileSystem::remove(std::string_view path) {
  const Location location = locate(path);
  if (!location.node || !location.parent) return false;
  location.parent->remove(*location.node);
  return true;
}

std::optional<std::string> FakeFileSystem::fileContent(std::string_view path) const {
  const Location location = locate(path);
  if (!location.node || location.node->isFolder()) return std::nullopt;
  return location.node->content ? *location.node->content : std::string(location.node->size, '\0');
}

std::optional<std::string> FakeFileSystem::spelledName(std::string_view path) const {
  const Location location = locate(path);
  if (!location.node) return std::nullopt;
  return location.node->name();
}

std::optional<FileFlags> FakeFileSystem::fileFlags(std::string_view path) const {
  const Location location = locate(path);
  if (!location.node || location.node->isFolder()) return std::nullopt;
  return location.node->fileFlags;
}

void FakeFileSystem::failAt(std::size_t n, ErrorNumber error) {
  stepsToFailure_ = n;
  failure_ = error;
  change_ = nullptr;
}

void FakeFileSystem::changeAt(std::size_t n, std::function<void()> change) {
  stepsToFailure_ = n;
  change_ = std::move(change);
}

void FakeFileSystem::step(Step step, std::string_view path) {
  steps_.push_back(step);
  if (stepsToFailure_ == 0 || --stepsToFailure_ != 0) return;
  if (!change_) throw RuntimeError(failure_, std::string(path));
  change_();
}

bool FakeFileSystem::canCheck() {
  ++existenceChecks_;
  return checksToFailure_ == 0 || --checksToFailure_ != 0;
}

FakeNode& FakeFileSystem::create(FakeNode::Kind kind, std::string_view path) {
  const auto parsed = parsePath(path);
  if (!parsed || (kind == FakeNode::Kind::file && (parsed->names.empty() || parsed->endsInSeparator)))
    throwInvalidPath(path);
  FakeNode* node = diskOf(parsed->letter).root.get();
  for (std::size_t i = 0; i < parsed->names.size(); ++i) {
    if (!node->isFolder()) throwInvalidPath(path);
    const bool last = i + 1 == parsed->names.size();
    FakeNode* next = node->find(parsed->names[i]);
    node = next ? next : &node->add(last ? kind : FakeNode::Kind::folder, parsed->names[i]);
  }
  if (node->isFolder() != (kind == FakeNode::Kind::folder)) throwInvalidPath(path);
  return *node;
}

}  // namespace plimo
