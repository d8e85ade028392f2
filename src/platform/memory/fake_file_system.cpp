// Drives, paths, existence, listing and reading.
#include "platform/memory/fake_file_system.h"

#include <utility>

#include "base/text.h"

namespace plimo {

namespace {

class FakeFileView : public FileView {
 public:
  explicit FakeFileView(std::shared_ptr<const std::string> content) : content_(std::move(content)) {}
  std::string_view bytes() const override { return *content_; }

 private:
  std::shared_ptr<const std::string> content_;
};

bool isDriveOnly(std::string_view path) { return path.size() == 2 && path[1] == ':'; }

}  // namespace

std::vector<Drive> FakeFileSystem::drives() {
  std::vector<Drive> drives;
  for (const DriveEntry& entry : driveTable_) {
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
    if (const auto parsed = parsePath(path)) {
      text += parsed->letter;
      for (const std::string& name : parsed->names) text.append("\\").append(foldCase(name));
    }
    return text;
  };
  const std::string text = folded(left);
  if (!text.empty() && text == folded(right)) return true;
  const FakeNode* file = findFile(left);
  return file && file == findFile(right);
}

bool FakeFileSystem::isRootFolder(std::string_view folder) {
  const auto parsed = parsePath(folder);
  return parsed && parsed->names.empty();
}

std::string FakeFileSystem::shortPath(std::string_view path) const {
  const auto parsed = parsePath(path);
  std::string result = std::string(1, parsed->letter) + ":\\";
  const FakeNode* node = disks_.at(parsed->letter).root.get();
  for (const std::string& name : parsed->names) {
    node = node->find(name);
    if (!result.ends_with('\\')) result += '\\';
    result += node->shortName();
  }
  return result;
}

std::string FakeFileSystem::shortFilePath(std::string_view file) {
  step(Step::shortFilePath, file);
  if (!findFile(file)) throw RuntimeError(ErrorNumber::fileNotFound, std::string(file));
  return shortPath(file);
}

std::string FakeFileSystem::shortFolderPath(std::string_view folder) {
  step(Step::shortFolderPath, folder);
  if (!findFolder(folder)) throw RuntimeError(ErrorNumber::pathNotFound, std::string(folder));
  return shortPath(folder);
}

bool FakeFileSystem::fileExists(std::string_view path) { return canCheck() && findFile(path) != nullptr; }

bool FakeFileSystem::folderExists(std::string_view path) { return canCheck() && findFolder(path) != nullptr; }

FolderContents FakeFileSystem::contents(std::string_view folder) { return list(folder); }

FolderContents FakeFileSystem::list(std::string_view folder) {
  step(Step::list, folder);
  const Location location = locate(folder);
  if (location.disk && !location.disk->ready) throw RuntimeError(ErrorNumber::diskNotReady, std::string(folder));
  if (!location.node || !location.node->isFolder()) throw RuntimeError(ErrorNumber::pathNotFound, std::string(folder));
  if (location.node->folderFlags.unreadable) throw RuntimeError(ErrorNumber::permissionDenied, std::string(folder));
  FolderContents contents;
  for (const auto& [folded, child] : location.node->children()) {
    (child->isFolder() ? contents.folders : contents.files).push_back(child->name());
  }
  return contents;
}

bool FakeFileSystem::walk(std::string_view folder, int depth, const WalkVisitor& visitor) {
  if (visitor.entered && !visitor.entered(folder)) return false;
  FolderContents here;
  try {
    here = list(folder);
  } catch (const RuntimeError& error) {
    if (!visitor.unreadable || !visitor.unreadable(error)) throw;
    return true;
  }
  for (const std::string& name : here.files) {
    if (visitor.wanted(name) && !visitor.found(join(folder, name))) return false;
  }
  if (depth == 0) return true;
  for (const std::string& name : here.folders) {
    const std::string subfolder = join(folder, name);
    if (!locate(subfolder).node) continue;  // removed since it was listed
    if (!walk(subfolder, depth - 1, visitor)) return false;
  }
  return true;
}

std::uint64_t FakeFileSystem::fileSize(std::string_view path) {
  step(Step::size, path);
  const FakeNode* file = findFile(path);
  if (!file) throw RuntimeError(ErrorNumber::fileNotFound, std::string(path));
  return file->size;
}

std::unique_ptr<FileView> FakeFileSystem::openForReading(std::string_view path) {
  step(Step::open, path);
  const auto throwError = [&](ErrorNumber number) { throw RuntimeError(number, std::string(path)); };
  const Location location = locate(path);
  if (location.disk && !location.disk->ready) throwError(ErrorNumber::diskNotReady);
  if (!location.node) throwError(location.parent ? ErrorNumber::fileNotFound : ErrorNumber::pathNotFound);
  if (location.node->isFolder() || location.node->fileFlags.unreadable) throwError(ErrorNumber::pathFileAccess);
  if (location.node->fileFlags.locked) throwError(ErrorNumber::permissionDenied);
  return std::make_unique<FakeFileView>(
      location.node->content ? location.node->content : std::make_shared<const std::string>(location.node->size, '\0'));
}

}  // namespace plimo
