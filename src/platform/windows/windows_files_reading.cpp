// Reading files.
#include <windows.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "platform/windows/error_mapping.h"
#include "platform/windows/native_path.h"
#include "platform/windows/windows_files.h"

namespace plimo {

namespace {

constexpr std::size_t readBlock = std::size_t{1} << 24;  // bytes; network drives refuse very large reads

// The whole content, which nothing can change any more. A mapped file could be neither truncated nor, on some file
// systems, replaced or deleted by anyone, this program included, and a page that a drive no longer delivers would raise
// an exception in the reader. Reading the largest catalogue costs less than its join.
class CopiedView : public FileView {
 public:
  CopiedView(std::unique_ptr<char[]> content, std::size_t size) : content_(std::move(content)), size_(size) {}
  std::string_view bytes() const override { return {content_.get(), size_}; }

 private:
  std::unique_ptr<char[]> content_;
  std::size_t size_;
};

// True if another program has written to the file, or truncated it, since it had this status.
bool isChanged(HANDLE file, const FileStatus& before) {
  const auto now = statusOf(file);
  return !now || now->size != before.size || ::CompareFileTime(&now->written, &before.written) != 0;
}

// False on failure, and if the file ends before.
bool readAll(HANDLE file, char* content, std::size_t size) {
  while (size > 0) {
    const auto block = static_cast<DWORD>(std::min(size, readBlock));
    DWORD count = 0;
    if (!::ReadFile(file, content, block, &count, nullptr) || count == 0) return false;
    content += count;
    size -= count;
  }
  return true;
}

}  // namespace

std::uint64_t WindowsFiles::fileSize(std::string_view path) {
  const auto status = fileStatus(path);
  if (!status || status->isFolder()) throwError(ErrorNumber::fileNotFound, path);
  return status->size;
}

std::unique_ptr<FileView> WindowsFiles::openForReading(std::string_view path) {
  const auto fail = [&](SystemError error) {
    if (isNotReady(error)) throwError(ErrorNumber::diskNotReady, path);
    if (isInUse(error)) throwError(ErrorNumber::permissionDenied, path);
    throwError(isNotFound(error) ? missingFileError(path) : ErrorNumber::pathFileAccess, path);
  };
  if (!fileStatus(path)) fail(::GetLastError());  // a file that ends in a separator
  UniqueHandle file = openShared(path, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN);
  if (!file) fail(::GetLastError());
  const auto status = statusOf(file.get());
  if (!status || status->isFolder() || ::GetFileType(file.get()) != FILE_TYPE_DISK) fail(ERROR_ACCESS_DENIED);
  const auto size = static_cast<std::size_t>(status->size);
  std::unique_ptr<char[]> content(new char[size]);  // not filled with zeros first
  if (!readAll(file.get(), content.get(), size) || isChanged(file.get(), *status)) fail(ERROR_READ_FAULT);
  return std::make_unique<CopiedView>(std::move(content), size);
}

}  // namespace plimo
