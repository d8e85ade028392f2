#include "platform/windows/native_path.h"

#include "platform/windows_paths/wtf8.h"

namespace plimo {

namespace {

// Invalid bytes become a character that no name contains, so that they never name another file.
constexpr char16_t invalidCharacter = u'?';

constexpr const wchar_t* invalidPath = L"\\\\?\\C:\\?";

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::uint64_t combine(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

// Whether the file with this attribute is a link; the tag is that of its reparse point.
bool isLink(DWORD attributes, DWORD tag) {
  return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && IsReparseTagNameSurrogate(tag);
}

}  // namespace

std::wstring toWide(std::string_view text) {
  const std::u16string units = wtf8ToUtf16(text, invalidCharacter);
  return std::wstring(units.begin(), units.end());
}

std::string fromWide(std::wstring_view text) { return utf16ToWtf8(std::u16string(text.begin(), text.end())); }

std::string currentFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    if (length == 0) return {};
    const bool fits = length < folder.size();
    folder.resize(length);
    if (fits) return plainPath(fromWide(folder));
  }
}

std::optional<std::string> absolutePath(std::string_view path) {
  return absolutePath(path, isAbsolutePath(path) ? std::string() : currentFolder());
}

std::wstring nativePath(std::string_view path) {
  const auto absolute = absolutePath(path);
  return absolute ? toWide(extendedPath(*absolute)) : invalidPath;
}

UniqueHandle openShared(std::string_view path, DWORD access, DWORD flags) {
  return UniqueHandle(::CreateFileW(nativePath(path).c_str(), access, shareAll, nullptr, OPEN_EXISTING,
                                    flags | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<FileStatus> statusOf(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION information{};
  if (!::GetFileInformationByHandle(file, &information)) return std::nullopt;
  FileStatus status;
  status.attributes = information.dwFileAttributes;
  status.created = information.ftCreationTime;
  status.accessed = information.ftLastAccessTime;
  status.written = information.ftLastWriteTime;
  status.size = combine(information.nFileSizeHigh, information.nFileSizeLow);
  if ((status.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    FILE_ATTRIBUTE_TAG_INFO tag{};
    status.isLink = ::GetFileInformationByHandleEx(file, FileAttributeTagInfo, &tag, sizeof tag) &&
                    isLink(status.attributes, tag.ReparseTag);
  }
  return status;
}

std::optional<FileStatus> linkStatus(std::string_view path) {
  std::optional<FileStatus> status;
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!::GetFileAttributesExW(nativePath(path).c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    const UniqueHandle link = openShared(path, FILE_READ_ATTRIBUTES, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!link) return std::nullopt;
    status = statusOf(link.get());
  } else {
    status = FileStatus{data.dwFileAttributes, false,
                        data.ftCreationTime,   data.ftLastAccessTime,
                        data.ftLastWriteTime,  combine(data.nFileSizeHigh, data.nFileSizeLow)};
  }
  if (status && !status->isFolder() && endsInSeparator(path)) {
    ::SetLastError(ERROR_PATH_NOT_FOUND);
    return std::nullopt;
  }
  return status;
}

std::optional<FileStatus> fileStatus(std::string_view path) {
  std::optional<FileStatus> status = linkStatus(path);
  if (!status || !status->isLink) return status;
  const UniqueHandle target = openShared(path, FILE_READ_ATTRIBUTES);
  return target ? statusOf(target.get()) : std::nullopt;
}

std::string finalPath(HANDLE file) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        ::GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
    if (length == 0) return {};
    const bool fits = length < path.size();
    path.resize(length);
    if (fits) return plainPath(fromWide(path));
  }
}

}  // namespace plimo
