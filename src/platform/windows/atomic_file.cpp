#include "platform/windows/atomic_file.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/shared/temporary_name.h"
#include "platform/windows/error_mapping.h"

namespace plimo {

namespace {

// Attributes that a file keeps; the others say how its content is stored.
constexpr DWORD keptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

constexpr std::size_t writeBlock = std::size_t{1} << 24;  // bytes; network drives refuse very large writes

// A file whose handle is closed while this is set is deleted, also if its process is killed.
bool setDeletedOnClose(HANDLE file, bool deleted) {
  FILE_DISPOSITION_INFO information{};
  information.DeleteFile = deleted ? TRUE : FALSE;
  return ::SetFileInformationByHandle(file, FileDispositionInfo, &information, sizeof information) != 0;
}

bool rename(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, const std::wstring& target, DWORD flags) {
  const std::size_t bytes = target.size() * sizeof(wchar_t);
  std::vector<std::byte> buffer(sizeof(FILE_RENAME_INFO) + bytes + sizeof(wchar_t));
  auto* const information = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
  information->Flags = flags;
  information->FileNameLength = static_cast<DWORD>(bytes);
  std::memcpy(information->FileName, target.data(), bytes);
  return ::SetFileInformationByHandle(file, kind, information, static_cast<DWORD>(buffer.size())) != 0;
}

// Lets a read-only file be replaced on file systems that cannot ignore the attribute. If it is not replaced after all,
// the attribute is set again.
class WritableMeanwhile {
 public:
  explicit WritableMeanwhile(std::wstring path) : path_(std::move(path)), before_(::GetFileAttributesW(path_.c_str())) {
    readOnly_ = before_ != INVALID_FILE_ATTRIBUTES && (before_ & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly_) ::SetFileAttributesW(path_.c_str(), before_ & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  WritableMeanwhile(const WritableMeanwhile&) = delete;
  WritableMeanwhile& operator=(const WritableMeanwhile&) = delete;
  ~WritableMeanwhile() {
    const DWORD error = ::GetLastError();
    if (readOnly_) ::SetFileAttributesW(path_.c_str(), before_);
    ::SetLastError(error);
  }
  void replaced() { readOnly_ = false; }

 private:
  std::wstring path_;
  DWORD before_;
  bool readOnly_ = false;
};

// The names of the flags are missing in older headers (ntifs.h, FILE_RENAME_INFORMATION).
constexpr DWORD replaceIfExists = 0x1;
constexpr DWORD posixSemantics = 0x2;
constexpr DWORD ignoreReadOnlyAttribute = 0x40;

// Folders cannot be flushed, and file systems without a journal lose what they lose.
constexpr auto renameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);  // FileRenameInfoEx

}  // namespace

bool renameOpenFile(HANDLE file, std::string_view to, bool replace, bool ignoreReadOnly) {
  const std::wstring target = nativePath(to);
  DWORD flags = posixSemantics;
  if (replace) flags |= replaceIfExists;
  if (ignoreReadOnly) flags |= ignoreReadOnlyAttribute;
  if (rename(file, renameInfoEx, target, flags)) return true;
  if (!isUnsupported(::GetLastError())) return false;
  if (!ignoreReadOnly) return rename(file, FileRenameInfo, target, replace ? TRUE : FALSE);
  WritableMeanwhile writable(target);
  if (!rename(file, FileRenameInfo, target, replace ? TRUE : FALSE)) return false;
  writable.replaced();
  return true;
}

AtomicFile::~AtomicFile() {
  if (file_) setDeletedOnClose(file_.get(), true);
}

bool AtomicFile::create(std::string_view path) {
  path_ = path;
  const std::string folder = parentPath(path);
  removeLeftoversIn(folder);
  do {
    const std::string name = joinPath(folder, makeTemporaryName(::GetCurrentProcessId()));
    // Not shared: so other processes can tell it from one that was left.
    file_ = UniqueHandle(::CreateFileW(nativePath(name).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                                       CREATE_NEW, FILE_ATTRIBUTE_HIDDEN, nullptr));
  } while (!file_ && ::GetLastError() == ERROR_FILE_EXISTS);
  // A file system that does not support it keeps the file of a killed process, until the next one is made there.
  if (file_) setDeletedOnClose(file_.get(), true);
  return static_cast<bool>(file_);
}

bool AtomicFile::reserve(std::uint64_t bytes) {
  FILE_ALLOCATION_INFO information{};
  information.AllocationSize.QuadPart = static_cast<LONGLONG>(bytes);
  if (::SetFileInformationByHandle(file_.get(), FileAllocationInfo, &information, sizeof information)) return true;
  return mapWriteError(::GetLastError(), ErrorNumber::pathFileAccess) != ErrorNumber::diskFull;
}

bool AtomicFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto block = static_cast<DWORD>(std::min(bytes.size(), writeBlock));
    DWORD written = 0;
    if (!::WriteFile(file_.get(), bytes.data(), block, &written, nullptr)) return false;
    if (written == 0) {
      ::SetLastError(ERROR_DISK_FULL);
      return false;
    }
    bytes.remove_prefix(written);
  }
  return true;
}

void AtomicFile::setTimes(const FILETIME& accessed, const FILETIME& written) {
  accessed_ = accessed;
  written_ = written;
}

bool AtomicFile::renameReplace() { return finish(true); }

bool AtomicFile::renameNoReplace() { return finish(false); }

bool AtomicFile::finish(bool replace) {
  if (!::FlushFileBuffers(file_.get())) return false;
  setDeletedOnClose(file_.get(), false);
  const auto number = [](const FILETIME& time) {
    LARGE_INTEGER value{};
    value.LowPart = time.dwLowDateTime;
    value.HighPart = static_cast<LONG>(time.dwHighDateTime);
    return value;
  };
  FILE_BASIC_INFO information{};
  information.LastAccessTime = number(accessed_);  // 0: unchanged
  information.LastWriteTime = number(written_);
  information.FileAttributes = attributes_ & keptAttributes;
  if (information.FileAttributes == 0) information.FileAttributes = FILE_ATTRIBUTE_NORMAL;  // 0 would be: unchanged
  // Errors are ignored: some file systems store neither attributes nor times.
  ::SetFileInformationByHandle(file_.get(), FileBasicInfo, &information, sizeof information);
  if (!renameOpenFile(file_.get(), path_, replace, replace)) {
    const DWORD error = ::GetLastError();
    information = {};
    information.FileAttributes = FILE_ATTRIBUTE_HIDDEN;  // a read-only file could not be deleted
    ::SetFileInformationByHandle(file_.get(), FileBasicInfo, &information, sizeof information);
    ::SetLastError(error);
    return false;
  }
  file_.close();
  return true;
}

void removeLeftoversIn(std::string_view folder) {
  WIN32_FIND_DATAW data{};
  const std::wstring pattern = nativePath(joinPath(folder.empty() ? "." : folder, ".plimo-")) + L"*";
  const HANDLE search = ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = fromWide(data.cFileName);
    constexpr DWORD others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if (!isTemporaryName(name) || (data.dwFileAttributes & others) != 0) continue;
    // Fails if a process has it open.
    const UniqueHandle left(::CreateFileW(nativePath(joinPath(folder, name)).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (left) setDeletedOnClose(left.get(), true);
  } while (::FindNextFileW(search, &data));
  ::FindClose(search);
}

}  // namespace plimo
