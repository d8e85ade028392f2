#include "support/windows/disk.h"

#include <aclapi.h>

#include <array>
#include <stdexcept>

#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"
#include "support/temporary_folder.h"

namespace plimo {

namespace {

void require(bool condition, const std::string& what) {
  if (!condition) throw std::runtime_error(what + ": error " + std::to_string(::GetLastError()));
}

}  // namespace

void removeTree(const std::string& path) {
  const std::wstring native = nativePath(path);
  const DWORD attributes = ::GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) ::SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (folder && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    WIN32_FIND_DATAW data{};
    const HANDLE search = ::FindFirstFileW((native + L"\\*").c_str(), &data);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = ::FindNextFileW(search, &data) != 0) {
      const std::string name = fromWide(data.cFileName);
      if (name != "." && name != "..") removeTree(path + "\\" + name);
    }
    ::FindClose(search);
  }
  if (folder) {
    ::RemoveDirectoryW(native.c_str());
  } else {
    ::DeleteFileW(native.c_str());
  }
}

std::optional<std::string> readFile(const std::string& path) {
  const UniqueHandle file = openShared(path, GENERIC_READ);
  if (!file) return std::nullopt;
  std::string content;
  std::array<char, 65536> buffer;
  for (DWORD count = 1; count > 0;) {
    if (!::ReadFile(file.get(), buffer.data(), buffer.size(), &count, nullptr)) return std::nullopt;
    content.append(buffer.data(), count);
  }
  return content;
}

void setAttributes(const std::string& path, DWORD attributes) {
  require(::SetFileAttributesW(nativePath(path).c_str(), attributes), "attributes of " + path);
}

DWORD attributesOf(const std::string& path) { return ::GetFileAttributesW(nativePath(path).c_str()); }

bool canBeNamed(const std::string& name) {
  const TemporaryFolder folder;
  const UniqueHandle file(::CreateFileW(nativePath(folder.path() + "\\" + name).c_str(), GENERIC_WRITE, 0, nullptr,
                                        CREATE_NEW, 0, nullptr));
  return static_cast<bool>(file);
}

void denyAccess(const std::string& path, DWORD rights) {
  std::array<unsigned char, SECURITY_MAX_SID_SIZE> everyone{};
  DWORD size = everyone.size();
  require(::CreateWellKnownSid(WinWorldSid, nullptr, everyone.data(), &size), "everyone");
  std::wstring native = nativePath(path);
  PACL old = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ::GetNamedSecurityInfoW(native.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &old, nullptr,
                          &descriptor);
  EXPLICIT_ACCESSW entry{};
  entry.grfAccessPermissions = rights;
  entry.grfAccessMode = DENY_ACCESS;
  entry.Trustee.TrusteeForm = TRUSTEE_IS_SID;
  entry.Trustee.ptstrName = reinterpret_cast<wchar_t*>(everyone.data());
  PACL changed = nullptr;
  if (::SetEntriesInAclW(1, &entry, old, &changed) == ERROR_SUCCESS) {
    ::SetNamedSecurityInfoW(native.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, changed,
                            nullptr);
  }
  ::LocalFree(changed);
  ::LocalFree(descriptor);
}

bool accessCanBeDenied() {
  static const bool denied = [] {
    const TemporaryFolder folder;
    writeFile(folder / "x", "x");
    denyAccess(folder / "x", FILE_READ_DATA);
    return !readFile(folder / "x");
  }();
  return denied;
}

}  // namespace plimo
