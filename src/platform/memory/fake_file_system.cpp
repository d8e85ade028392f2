// What the program asks of the computer in memory, but for writing.
#include "platform/memory/fake_file_system.h"

#include <utility>

#include "base/text.h"

namespace plimo {

namespace {

class MemoryView : public FileView {
 public:
  explicit MemoryView(std::shared_ptr<const std::string> content) : content_(std::move(content)) {}
  std::string_view bytes() const override { return *content_; }

 private:
  std::shared_ptr<const std::string> content_;
};

bool isDriveOnly(std::string_view path) { return path.size() == 2 && path[1] == ':'; }

}  // namespace

std::vector<Drive> FakeFileSystem::drives() {
  std::vector<Drive> drives;
  for (const TableEntry& entry : table_) {
    drives.push_back({entry.letter, entry.type, disks_.at(entry.letter).ready, std::string(1, entry.letter) + ":\\"});
  }
  return drives;
}

std::string FakeFileSystem::currentDirectory() { return currentDirectory_; }

std::string FakeFileSystem::join(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  return folder.ends_with('\\') ? std::string(folder).append(name) : joinAlwaysSeparated(folder, name);
}

std::string FakeFileSystem::joinAlwaysSeparated(std::string_view folder, std::string_view name) {
  return std::string(folder).append("\\").append(name);
}

std::string_view FakeFileSystem::fileName(std::string_view path) {
  const std::size_t end = path.rfind('\\');
  return end == std::string_view::npos ? path : path.substr(end + 1);
}

std::string FakeFileSystem::folderOf(std::string_view path) {
  path.remove_suffix(fileName(path).size());
  while (path.ends_with('\\')) path.remove_suffix(1);
  return isDriveOnly(path) ? std::string(path) + "\\" : std::string(path);
}

bool FakeFileSystem::holdsSeparator(std::string_view name) {
  return name.find_first_of("\\/:") != std::string_view::npos;
}

bool FakeFileSystem::caseSensitive() { return false; }

bool FakeFileSystem::sameFile(std::string_view left, std::string_view right) {
  if (left == right) return true;
  const auto folded = [this](std::string_view path) {
    std::string text;
    if (const auto way = route(path)) {
      text += way->letter;
      for (const std::string& name : way->names) text.append("\\").append(foldCase(name));
    }
    return text;
  };
  const std::string text = folded(left);
  if (!text.empty() && text == folded(right)) return true;
  const FakeNode* file = seenFile(left);
  return file && file == seenFile(right);
}

bool FakeFileSystem::isRootFolder(std::string_view folder) {
  const auto way = route(folder);
  return way && way->names.empty();
}

std::string FakeFileSystem::shortPath(std::string_view path) const {
  const auto way = route(path);
  std::string result = std::string(1, way->letter) + ":\\";
  const FakeNode* node = disks_.at(way->letter).root.get();
  for (const std::string& name : way->names) {
    node = node->find(name);
    if (!result.ends_with('\\')) result += '\\';
    result += node->shortName();
  }
  return result;
}

std::string FakeFileSystem::shortFilePath(std::string_view file) {
  step(file);
  if (!seenFile(file)) throw RuntimeError(ErrorNumber::fileNotFound, std::string(file));
  return shortPath(file);
}

std::string FakeFileSystem::shortFolderPath(std::string_view folder) {
  step(folder);
  if (!seenFolder(folder)) throw RuntimeError(ErrorNumber::pathNotFound, std::string(folder));
  return shortPath(folder);
}

bool FakeFileSystem::fileExists(std::string_view path) { return seenFile(path) != nullptr; }

bool FakeFileSystem::folderExists(std::string_view path) { return seenFolder(path) != nullptr; }

FolderContents FakeFileSystem::contents(std::string_view folder) { return list(folder); }

FolderContents FakeFileSystem::list(std::string_view folder) {
  step(folder);
  const Place at = place(folder);
  if (at.disk && !at.disk->ready) throw RuntimeError(ErrorNumber::diskNotReady, std::string(folder));
  if (!at.node || !at.node->isFolder()) throw RuntimeError(ErrorNumber::pathNotFound, std::string(folder));
  if (at.node->folderFlags.unreadable) throw RuntimeError(ErrorNumber::permissionDenied, std::string(folder));
  FolderContents contents;
  for (const auto& [folded, child] : at.node->children()) {
    (child->isFolder() ? contents.folders : contents.files).push_back(child->name());
  }
  return contents;
}

bool FakeFileSystem::walk(std::string_view folder, int depth, bool (*wanted)(std::string_view name),
                          const FileVisitor& found, const FileVisitor& entered) {
  if (!entered(folder)) return false;
  const FolderContents here = list(folder);
  for (const std::string& name : here.files) {
    if (wanted(name) && !found(join(folder, name))) return false;
  }
  if (depth == 0) return true;
  for (const std::string& name : here.folders) {
    if (!walk(join(folder, name), depth - 1, wanted, found, entered)) return false;
  }
  return true;
}

std::uint64_t FakeFileSystem::fileSize(std::string_view path) {
  step(path);
  const FakeNode* file = seenFile(path);
  if (!file) throw RuntimeError(ErrorNumber::fileNotFound, std::string(path));
  return file->size;
}

std::unique_ptr<FileView> FakeFileSystem::openForReading(std::string_view path) {
  step(path);
  const auto fail = [&](ErrorNumber number) { throw RuntimeError(number, std::string(path)); };
  const Place at = place(path);
  if (at.disk && !at.disk->ready) fail(ErrorNumber::diskNotReady);
  if (!at.node) fail(at.folder ? ErrorNumber::fileNotFound : ErrorNumber::pathNotFound);
  if (at.node->isFolder() || at.node->fileFlags.unreadable) fail(ErrorNumber::pathFileAccess);
  if (at.node->fileFlags.locked) fail(ErrorNumber::permissionDenied);
  return std::make_unique<MemoryView>(at.node->content ? at.node->content
                                                       : std::make_shared<const std::string>(at.node->size, '\0'));
}

}  // namespace plimo
