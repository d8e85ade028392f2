// Copying and moving files.
#include <windows.h>

#include <utility>

#include "platform/windows/atomic_file.h"
#include "platform/windows/error_mapping.h"
#include "platform/windows/native_path.h"
#include "platform/windows/windows_files.h"

namespace plimo {

namespace {

constexpr DWORD copyChunk = 1024 * 1024;  // bytes between two progress reports of a copy

// What a file is renamed or copied to, if writing there has failed. `to` is the path to report.
[[noreturn]] void throwTargetError(SystemError error, std::string_view to) {
  if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) throwError(ErrorNumber::fileExists, to);
  const bool missing = isNotFound(error) && error != ERROR_INVALID_NAME;
  throwError(missing ? ErrorNumber::pathNotFound : mapWriteError(error, ErrorNumber::permissionDenied), to);
}

}  // namespace

std::string WindowsFiles::copyTarget(std::string_view to, bool overwrite, Force force) const {
  std::string target(to);
  if (const auto link = linkStatus(to); link && link->isLink && !link->isFolder()) {
    const UniqueHandle file = openShared(to, FILE_READ_ATTRIBUTES);
    target = file ? finalPath(file.get()) : std::string();
    if (target.empty()) throwError(ErrorNumber::permissionDenied, to);
  }
  const auto old = linkStatus(target);
  if (old && old->isFolder()) throwError(ErrorNumber::permissionDenied, to);
  const std::string folder = parentPath(target);
  const auto folderStatus = fileStatus(folder.empty() ? "." : folder);
  if (!folderStatus || !folderStatus->isFolder() || endsInSeparator(to)) throwError(ErrorNumber::pathNotFound, to);
  if (!old && !isAllowedName(baseName(target))) throwError(ErrorNumber::badFileName, to);
  if (old && !overwrite) throwError(ErrorNumber::fileExists, to);
  if (old && old->isReadOnly() && force == Force::no) throwError(ErrorNumber::permissionDenied, to);
  if (old) {
    const UniqueHandle file = openShared(target, DELETE, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file && !isNotFound(::GetLastError())) throwTargetError(::GetLastError(), to);
  }
  return target;
}

bool WindowsFiles::copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) {
  if (!fileExists(from)) throwError(ErrorNumber::fileNotFound, from);
  if (sameFile(from, to)) throwError(ErrorNumber::permissionDenied, to);
  const UniqueHandle source = openShared(from, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN);
  const auto status = source ? statusOf(source.get()) : std::nullopt;
  if (!status) throwError(ErrorNumber::permissionDenied, from);
  if (status->isFolder()) throwError(ErrorNumber::fileNotFound, from);  // replaced since it was looked at
  AtomicFile copy;
  if (!copy.create(copyTarget(to, overwrite, Force::no))) throwTargetError(::GetLastError(), to);
  if (!copy.reserve(status->size)) throwTargetError(::GetLastError(), to);
  std::string buffer(copyChunk, '\0');
  std::uint64_t copied = 0;
  for (;;) {
    DWORD count = 0;
    if (!::ReadFile(source.get(), buffer.data(), copyChunk, &count, nullptr)) {
      throwError(ErrorNumber::permissionDenied, from);
    }
    if (count == 0) break;
    if (!copy.write({buffer.data(), count})) throwTargetError(::GetLastError(), to);
    copied += count;
    if (progress && !progress(copied, status->size)) return false;
  }
  copy.setAttributes(status->attributes);
  copy.setTimes(status->accessed, status->written);
  if (!(overwrite ? copy.renameReplace() : copy.renameNoReplace())) throwTargetError(::GetLastError(), to);
  return true;
}

bool WindowsFiles::moveFile(std::string_view from, std::string_view to, Force force) {
  if (!fileExists(from)) throwError(ErrorNumber::fileNotFound, from);
  if (sameFile(from, to)) throwError(ErrorNumber::permissionDenied, to);
  const auto status = linkStatus(from);
  if (!status) throwError(ErrorNumber::fileNotFound, from);
  if (status->isLink) return false;  // a link is not moved: its content is copied
  const std::string target = copyTarget(to, true, force);
  // As a copy would, which reads the file; with force, permissions do not matter.
  const UniqueHandle source = openShared(from, force == Force::no ? GENERIC_READ | DELETE : DELETE);
  if (!source) {
    throwError(isNotFound(::GetLastError()) ? ErrorNumber::fileNotFound : ErrorNumber::permissionDenied, from);
  }
  if (force == Force::no && status->isReadOnly()) return false;  // it is copied, and its deletion fails
  if (renameOpenFile(source.get(), target, true, force != Force::no)) return true;
  const DWORD error = ::GetLastError();
  if (error == ERROR_NOT_SAME_DEVICE || isUnsupported(error)) return false;
  if (isNotFound(error) && !fileExists(from)) throwError(ErrorNumber::fileNotFound, from);
  throwTargetError(error, to);
}

}  // namespace plimo
