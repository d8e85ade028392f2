// Replacing and deleting files.
#include <windows.h>

#include <utility>

#include "platform/shared/buffered_replacement.h"
#include "platform/windows/atomic_file.h"
#include "platform/windows/error_mapping.h"
#include "platform/windows/native_path.h"
#include "platform/windows/windows_files.h"

namespace plimo {

namespace {

class WindowsFileReplacement : public BufferedReplacement {
 public:
  explicit WindowsFileReplacement(std::string_view path) : path_(path) {}

  bool create(std::string_view target) { return file_.create(target); }
  void setAttributes(DWORD attributes) { file_.setAttributes(attributes); }

 private:
  bool writeThrough(std::string_view bytes) override { return file_.write(bytes); }
  bool replace() override { return file_.renameReplace(); }
  [[noreturn]] void throwWriteError() override {
    const ErrorNumber number = mapWriteError(::GetLastError(), ErrorNumber::pathFileAccess);
    throwError(number == ErrorNumber::diskFull ? number : ErrorNumber::pathFileAccess, path_);
  }

  std::string path_;
  AtomicFile file_;
};

// What writing to a path changes: the file that a link leads to. An own file's link is itself replaced if it leads out
// of the file's folder, or nowhere. Empty if a link leads nowhere otherwise.
std::string writeTarget(std::string_view path, Force force) {
  const auto link = linkStatus(path);
  if (!link || !link->isLink || link->isFolder()) return std::string(path);
  const UniqueHandle file = openShared(path, FILE_READ_ATTRIBUTES);
  std::string target = file ? finalPath(file.get()) : std::string();
  if (force != Force::own) return target;
  const std::string parent = parentPath(path);
  const UniqueHandle folder = openShared(parent.empty() ? "." : parent, FILE_READ_ATTRIBUTES);
  const std::string own = folder ? finalPath(folder.get()) : std::string();
  return !target.empty() && !own.empty() && folderContains(own, target) ? target : std::string(path);
}

}  // namespace

std::unique_ptr<FileReplacement> WindowsFiles::replaceFile(std::string_view path, Force force) {
  const auto fail = [&](SystemError error) {
    if (isInUse(error)) throwError(ErrorNumber::permissionDenied, path);
    // A folder that is no folder has an error of its own, but a missing one and a name that is too long may share one.
    throwError(isNotFound(error) && error != ERROR_INVALID_NAME ? missingFolderError(path)
                                                                : mapWriteError(error, ErrorNumber::pathFileAccess),
               path);
  };
  const std::string target = writeTarget(path, force);
  if (target.empty()) throwError(ErrorNumber::pathFileAccess, path);
  const auto old = linkStatus(target);
  if (old && old->isFolder()) throwError(ErrorNumber::pathFileAccess, path);
  const std::string folder = parentPath(target);
  if (!old && !folderExists(folder.empty() ? "." : folder)) throwError(missingFolderError(path), path);
  if (endsInSeparator(path)) throwError(ErrorNumber::pathFileAccess, path);
  if (!old && !isAllowedName(baseName(target))) throwError(ErrorNumber::badFileName, path);
  const bool replacesLink = old && old->isLink;
  if (old && old->isReadOnly() && force == Force::no) throwError(ErrorNumber::pathFileAccess, path);
  if (old) {
    const UniqueHandle file = openShared(target, DELETE, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file && !isNotFound(::GetLastError())) fail(::GetLastError());
  }
  auto replacement = std::make_unique<WindowsFileReplacement>(path);
  if (!replacement->create(target)) fail(::GetLastError());
  if (old && !replacesLink) {
    DWORD attributes = old->attributes | FILE_ATTRIBUTE_ARCHIVE;
    if (force != Force::no) attributes &= ~DWORD{FILE_ATTRIBUTE_READONLY};
    replacement->setAttributes(attributes);
  }
  return replacement;
}

void WindowsFiles::deleteFile(std::string_view path, Force force) {
  if (!fileExists(path)) throwError(ErrorNumber::fileNotFound, path);
  const auto status = linkStatus(path);  // a link itself is deleted
  if (!status) throwError(ErrorNumber::fileNotFound, path);
  if (force == Force::no && status->isReadOnly()) throwError(ErrorNumber::permissionDenied, path);
  const std::wstring file = nativePath(path);
  if (status->isReadOnly()) ::SetFileAttributesW(file.c_str(), status->attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  if (::DeleteFileW(file.c_str())) return;
  const DWORD error = ::GetLastError();
  if (status->isReadOnly()) ::SetFileAttributesW(file.c_str(), status->attributes);
  throwError(isNotFound(error) ? ErrorNumber::fileNotFound : ErrorNumber::permissionDenied, path);
}

void WindowsFiles::removeLeftovers(std::string_view folder) { removeLeftoversIn(folder); }

}  // namespace plimo
