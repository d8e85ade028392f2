#include "platform/windows/directory_reader.h"

#include <windows.h>

#include <string>
#include <utility>

#include "platform/windows/native_path.h"

namespace plimo {

namespace {

struct CloseSearch {
  void operator()(void* search) const {
    if (search != INVALID_HANDLE_VALUE) ::FindClose(search);
  }
};

// Only for reparse points: the files that they lead to may be missing.
bool leadsToFile(std::string_view folder, std::string_view name) {
  const auto status = fileStatus(joinPath(folder, name));
  return status && !status->isFolder();
}

void add(const WIN32_FIND_DATAW& data, std::string_view folder, const ListingFilter& filter, std::string& name,
         ListedNames& names) {
  const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool isReparsePoint = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (isFolder && (!filter.folders || (isReparsePoint && !filter.linkedFolders))) return;
  name = fromWide(data.cFileName);
  if (isFolder) {
    if (name == "." || name == ".." || (filter.skipFolder && filter.skipFolder(name))) return;
    names.addFolder(name);
  } else if ((!filter.acceptFile || filter.acceptFile(name)) && (!isReparsePoint || leadsToFile(folder, name))) {
    names.addFile(name);
  }
}

}  // namespace

SystemError listFolder(std::string_view folder, const ListingFilter& filter, ListedNames& names) {
  names.clear();
  std::wstring pattern = nativePath(folder);
  if (!pattern.ends_with(L'\\')) pattern += L'\\';
  pattern += L'*';
  WIN32_FIND_DATAW data{};
  // Without short names, and in large pieces: few calls for a large folder.
  const std::unique_ptr<void, CloseSearch> search(::FindFirstFileExW(
      pattern.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (search.get() == INVALID_HANDLE_VALUE) {
    const SystemError error = ::GetLastError();
    // An empty drive's root has not even the entries "." and "..".
    return error == ERROR_FILE_NOT_FOUND && fileStatus(folder) ? ERROR_SUCCESS : error;
  }
  std::string name;
  do {
    add(data, folder, filter, name, names);
  } while (::FindNextFileW(search.get(), &data));
  const DWORD error = ::GetLastError();
  if (error != ERROR_NO_MORE_FILES) return error;
  names.sort();
  return ERROR_SUCCESS;
}

WindowsDirectoryReader::WindowsDirectoryReader(bool (*acceptFile)(std::string_view name), Skip skip)
    : acceptFile_(acceptFile), skip_(std::move(skip)) {}

std::shared_ptr<void> WindowsDirectoryReader::read(PrefetchedDirectory& directory) const {
  ListingFilter filter;
  filter.acceptFile = acceptFile_;
  filter.folders = directory.depth > 0;
  filter.skipFolder = [&](std::string_view name) { return skip_(directory.path, name); };
  directory.openError = listFolder(directory.path, filter, *directory.names);
  return nullptr;
}

}  // namespace plimo
