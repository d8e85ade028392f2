// Replacing, deleting and copying files of the computer in memory.
#include <utility>

#include "platform/memory/fake_file_system.h"

namespace plimo {

namespace {

// Characters that no name may hold.
bool isName(std::string_view name) { return name.find_first_of("\"*/:<>?|") == std::string_view::npos; }

}  // namespace

class FakeFileSystem::Replacement : public FileReplacement {
 public:
  Replacement(FakeFileSystem& files, std::string_view path, Force force) : files_(files), path_(path), force_(force) {}

  void write(std::string_view bytes) override {
    files_.step(path_);
    if (!bytes.empty()) checkRoom();
    content_.append(bytes);
  }

  void commit() override {
    files_.step(path_);
    checkRoom();
    Place at = placeNow();
    if (at.node && force_ == Force::yes) {  // the old file goes, its spelling too
      at.folder->remove(*at.node);
      at.node = nullptr;
    }
    FakeNode& file = at.node ? *at.node : at.folder->add(FakeNode::Kind::file, at.name);
    file.size = content_.size();
    file.content = std::make_shared<const std::string>(std::move(content_));
    file.fileFlags.readOnly = false;
  }

 private:
  void checkRoom() const {
    const Place at = files_.place(path_);
    if (at.disk && at.disk->full) throw RuntimeError(ErrorNumber::diskFull, path_);
  }

  // The world may have changed since the replacement began; a commit knows one error for all that.
  Place placeNow() const {
    try {
      return files_.placeToReplace(path_, force_);
    } catch (const RuntimeError&) {
      throw RuntimeError(ErrorNumber::pathFileAccess, path_);
    }
  }

  FakeFileSystem& files_;
  std::string path_;
  Force force_;
  std::string content_;
};

FakeFileSystem::Place FakeFileSystem::placeToReplace(std::string_view path, Force force) const {
  const auto fail = [&](ErrorNumber number) { throw RuntimeError(number, std::string(path)); };
  Place at = place(path);
  if (at.disk && !at.disk->ready) fail(ErrorNumber::diskNotReady);
  if (at.node && at.node->isFolder()) fail(ErrorNumber::pathFileAccess);
  if (!at.folder) fail(ErrorNumber::pathNotFound);
  if (path.ends_with('\\')) fail(ErrorNumber::pathFileAccess);
  if (!isName(at.name)) fail(ErrorNumber::badFileName);
  if (at.folder->folderFlags.unwritable) fail(ErrorNumber::pathFileAccess);
  if (at.node && at.node->fileFlags.readOnly && force == Force::no) fail(ErrorNumber::pathFileAccess);
  if (at.node && at.node->fileFlags.locked) fail(ErrorNumber::permissionDenied);
  return at;
}

std::unique_ptr<FileReplacement> FakeFileSystem::replaceFile(std::string_view path, Force force) {
  step(path);
  placeToReplace(path, force);
  return std::make_unique<Replacement>(*this, path, force);
}

void FakeFileSystem::deleteFile(std::string_view path, Force force) {
  step(path);
  const Place at = seen(path);
  if (!at.node || at.node->isFolder()) throw RuntimeError(ErrorNumber::fileNotFound, std::string(path));
  const FileFlags flags = at.node->fileFlags;
  if (flags.locked || (flags.readOnly && force == Force::no) || at.folder->folderFlags.unwritable) {
    throw RuntimeError(ErrorNumber::permissionDenied, std::string(path));
  }
  at.folder->remove(*at.node);
}

void FakeFileSystem::copyFile(std::string_view from, std::string_view to, bool overwrite,
                              const std::function<void(std::uint64_t copied, std::uint64_t size)>& progress) {
  step(from);
  const auto fail = [](ErrorNumber number, std::string_view path) { throw RuntimeError(number, std::string(path)); };
  const FakeNode* source = seenFile(from);
  if (!source) fail(ErrorNumber::fileNotFound, from);
  if (source->fileFlags.locked || source->fileFlags.unreadable) fail(ErrorNumber::permissionDenied, from);

  const Place at = seen(to);
  if (at.node == source || (at.node && at.node->isFolder())) fail(ErrorNumber::permissionDenied, to);
  if (!at.folder || to.ends_with('\\')) fail(ErrorNumber::pathNotFound, to);
  if (!isName(at.name)) fail(ErrorNumber::badFileName, to);
  if (at.node && !overwrite) fail(ErrorNumber::fileExists, to);
  if (at.folder->folderFlags.unwritable) fail(ErrorNumber::permissionDenied, to);
  if (at.node && (at.node->fileFlags.readOnly || at.node->fileFlags.locked)) fail(ErrorNumber::permissionDenied, to);
  if (at.disk->full) fail(ErrorNumber::diskFull, to);

  if (progress) progress(source->size, source->size);
  FakeNode& target = at.node ? *at.node : at.folder->add(FakeNode::Kind::file, at.name);
  target.content = source->content;
  target.size = source->size;
  target.fileFlags = source->fileFlags;
}

}  // namespace plimo
