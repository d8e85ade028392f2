// Replacing, deleting and copying files.
#include <utility>

#include "platform/memory/fake_file_system.h"

namespace plimo {

namespace {

bool isValidName(std::string_view name) { return name.find_first_of("\"*/:<>?|") == std::string_view::npos; }

}  // namespace

class FakeFileSystem::Replacement : public FileReplacement {
 public:
  Replacement(FakeFileSystem& files, std::string_view path, Force force) : files_(files), path_(path), force_(force) {}

  void write(std::string_view bytes) override {
    files_.step(Step::write, path_);
    if (!bytes.empty()) throwIfDiskFull();
    content_.append(bytes);
  }

  void commit() override {
    files_.step(Step::commit, path_);
    throwIfDiskFull();
    Location location = locateAgain();
    if (location.node && force_ != Force::no) {  // removes the old spelling too
      location.parent->remove(*location.node);
      location.node = nullptr;
    }
    FakeNode& file = location.node ? *location.node : location.parent->add(FakeNode::Kind::file, location.name);
    file.size = content_.size();
    file.content = std::make_shared<const std::string>(std::move(content_));
    file.fileFlags.readOnly = false;
  }

 private:
  void throwIfDiskFull() const {
    const Location location = files_.locate(path_);
    if (location.disk && location.disk->full) throw RuntimeError(ErrorNumber::diskFull, path_);
  }

  // The disk may have changed since replaceFile; the only error of a commit is then 75.
  Location locateAgain() const {
    try {
      return files_.locateForReplacing(path_, force_);
    } catch (const RuntimeError&) {
      throw RuntimeError(ErrorNumber::pathFileAccess, path_);
    }
  }

  FakeFileSystem& files_;
  std::string path_;
  Force force_;
  std::string content_;
};

FakeFileSystem::Location FakeFileSystem::locateForReplacing(std::string_view path, Force force) const {
  const auto throwError = [&](ErrorNumber number) { throw RuntimeError(number, std::string(path)); };
  Location location = locate(path);
  if (location.disk && !location.disk->ready) throwError(ErrorNumber::diskNotReady);
  if (location.node && location.node->isFolder()) throwError(ErrorNumber::pathFileAccess);
  if (!location.parent) throwError(ErrorNumber::pathNotFound);
  if (path.ends_with('\\')) throwError(ErrorNumber::pathFileAccess);
  if (!isValidName(location.name)) throwError(ErrorNumber::badFileName);
  if (location.parent->folderFlags.unwritable) throwError(ErrorNumber::pathFileAccess);
  if (location.node && location.node->fileFlags.readOnly && force == Force::no) throwError(ErrorNumber::pathFileAccess);
  if (location.node && location.node->fileFlags.locked) throwError(ErrorNumber::permissionDenied);
  return location;
}

std::unique_ptr<FileReplacement> FakeFileSystem::replaceFile(std::string_view path, Force force) {
  step(Step::replace, path);
  locateForReplacing(path, force);
  return std::make_unique<Replacement>(*this, path, force);
}

void FakeFileSystem::deleteFile(std::string_view path, Force force) {
  step(Step::remove, path);
  const Location location = locateVisible(path);
  if (!location.node || location.node->isFolder()) throw RuntimeError(ErrorNumber::fileNotFound, std::string(path));
  const FileFlags flags = location.node->fileFlags;
  if (flags.locked || (flags.readOnly && force == Force::no) || location.parent->folderFlags.unwritable) {
    throw RuntimeError(ErrorNumber::permissionDenied, std::string(path));
  }
  location.parent->remove(*location.node);
}

FakeFileSystem::Location FakeFileSystem::locateForCopying(std::string_view from, std::string_view to, bool overwrite,
                                                          Force force) const {
  const auto throwError = [](ErrorNumber number, std::string_view path) {
    throw RuntimeError(number, std::string(path));
  };
  const FakeNode* source = findFile(from);
  if (!source) throwError(ErrorNumber::fileNotFound, from);
  if (source->fileFlags.locked || (source->fileFlags.unreadable && force == Force::no))
    throwError(ErrorNumber::permissionDenied, from);

  Location location = locateVisible(to);
  if (location.node == source || (location.node && location.node->isFolder()))
    throwError(ErrorNumber::permissionDenied, to);
  if (!location.parent || to.ends_with('\\')) throwError(ErrorNumber::pathNotFound, to);
  if (!isValidName(location.name)) throwError(ErrorNumber::badFileName, to);
  if (location.node && !overwrite) throwError(ErrorNumber::fileExists, to);
  if (location.parent->folderFlags.unwritable) throwError(ErrorNumber::permissionDenied, to);
  if (location.node && ((location.node->fileFlags.readOnly && force == Force::no) || location.node->fileFlags.locked))
    throwError(ErrorNumber::permissionDenied, to);
  return location;
}

bool FakeFileSystem::copyFile(std::string_view from, std::string_view to, bool overwrite,
                              const CopyProgress& progress) {
  step(Step::copy, from);
  if (locateForCopying(from, to, overwrite).disk->full) throw RuntimeError(ErrorNumber::diskFull, std::string(to));
  const std::uint64_t size = findFile(from)->size;
  if (progress && !progress(size, size)) return false;
  const Location location = locateForCopying(from, to, overwrite);  // again: `progress` may have changed the disk
  const FakeNode* source = findFile(from);
  FakeNode& target = location.node ? *location.node : location.parent->add(FakeNode::Kind::file, location.name);
  target.content = source->content;
  target.size = source->size;
  target.fileFlags = source->fileFlags;
  return true;
}

bool FakeFileSystem::moveFile(std::string_view from, std::string_view to, Force force) {
  step(Step::move, from);
  const Location location = locateForCopying(from, to, true, force);
  const Location source = locateVisible(from);
  if (!movesFiles_ || location.disk != source.disk || (source.node->fileFlags.readOnly && force == Force::no))
    return false;
  FakeNode& target = location.node ? *location.node : location.parent->add(FakeNode::Kind::file, location.name);
  target.content = source.node->content;
  target.size = source.node->size;
  target.fileFlags = source.node->fileFlags;
  source.parent->remove(*source.node);
  return true;
}

}  // namespace plimo
