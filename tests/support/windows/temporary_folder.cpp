#include "support/temporary_folder.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <stdexcept>

#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"
#include "support/windows/disk.h"

namespace plimo {

namespace {

void require(bool condition, const std::string& what) {
  if (!condition) throw std::runtime_error(what + ": error " + std::to_string(::GetLastError()));
}

std::string newFolder() {
  static std::atomic<unsigned> count{0};
  std::array<wchar_t, MAX_PATH + 1> buffer{};
  ::GetTempPathW(buffer.size(), buffer.data());
  return joinPath(fromWide(buffer.data()), "plimo-test-" + std::to_string(::GetCurrentProcessId()) + "-" +
                                               std::to_string(::GetTickCount()) + "-" + std::to_string(count++));
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(newFolder()) {
  require(::CreateDirectoryW(nativePath(path_).c_str(), nullptr), "cannot create a temporary folder");
}

TemporaryFolder::~TemporaryFolder() { removeTree(path_); }

std::string TemporaryFolder::operator/(const std::string& name) const {
  std::string path = path_ + "\\" + name;
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

void writeFile(const std::string& path, const std::string& content) {
  makeFolders(parentPath(path));
  const UniqueHandle file(
      ::CreateFileW(nativePath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  DWORD written = 0;
  require(file && ::WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) &&
              written == content.size(),
          "cannot write " + path);
}

void makeFolders(const std::string& path) {
  if (const auto status = fileStatus(path); status && status->isFolder()) return;
  if (parentPath(path) != path) makeFolders(parentPath(path));
  require(::CreateDirectoryW(nativePath(path).c_str(), nullptr), "cannot create " + path);
}

}  // namespace plimo
