#include "platform/native_backend.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/windows/windows_files.h"
#include "support/temporary_folder.h"

namespace plimo {

struct NativeBackend::Disk {
  TemporaryFolder folder;
  WindowsFiles files{
      std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()}, {'D', DriveType::cdrom, folder / "not-there"}}};
};

NativeBackend::NativeBackend() : disk_(std::make_unique<Disk>()) {}

NativeBackend::~NativeBackend() = default;

FileSystemObject& NativeBackend::files() { return disk_->files; }

std::string NativeBackend::root() const { return disk_->folder.path(); }

void NativeBackend::addFile(const std::string& path, const std::string& content) { writeFile(path, content); }

void NativeBackend::addFolder(const std::string& path) { makeFolders(path); }

void NativeBackend::remove(const std::string& path) { std::filesystem::remove_all(path); }

void NativeBackend::makeReadOnly(const std::string&) {}

void NativeBackend::makeUnreadable(const std::string&) {}

void NativeBackend::makeFolderUnreadable(const std::string&) {}

void NativeBackend::makeFolderUnwritable(const std::string&) {}

std::optional<std::string> NativeBackend::content(const std::string& path) const {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

bool NativeBackend::onFullDisk(const FullDiskCheck&, std::string&) { return false; }

}  // namespace plimo
