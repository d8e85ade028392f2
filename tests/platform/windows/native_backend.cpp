#include "platform/native_backend.h"

#include <windows.h>

#include "platform/windows/windows_files.h"
#include "support/temporary_folder.h"
#include "support/windows/disk.h"

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

void NativeBackend::remove(const std::string& path) { removeTree(path); }

void NativeBackend::makeReadOnly(const std::string& path) { setAttributes(path, FILE_ATTRIBUTE_READONLY); }

bool NativeBackend::deniesAccess() const { return accessCanBeDenied(); }

void NativeBackend::makeUnreadable(const std::string& path) { denyAccess(path, FILE_READ_DATA); }

void NativeBackend::makeFolderUnreadable(const std::string& path) { denyAccess(path, FILE_LIST_DIRECTORY); }

void NativeBackend::makeFolderUnwritable(const std::string& path) {
  denyAccess(path, FILE_ADD_FILE | FILE_DELETE_CHILD);
}

std::optional<std::string> NativeBackend::content(const std::string& path) const { return readFile(path); }

// A small disk takes an administrator.
bool NativeBackend::onFullDisk(const FullDiskCheck&, std::string&) { return false; }

}  // namespace plimo
