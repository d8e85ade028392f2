#include "platform/native_backend.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/linux/linux_files.h"
#include "support/linux/permissions.h"
#include "support/temporary_folder.h"

namespace plimo {

struct NativeBackend::Disk {
  UnprivilegedUser user;
  TemporaryFolder folder;
  LinuxFiles files{
      std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()}, {'D', DriveType::cdrom, folder / "not-there"}}};
};

NativeBackend::NativeBackend() : disk_(std::make_unique<Disk>()) {}

NativeBackend::~NativeBackend() = default;

FileSystemObject& NativeBackend::files() { return disk_->files; }

std::string NativeBackend::root() const { return disk_->folder.path(); }

void NativeBackend::addFile(const std::string& path, const std::string& content) { writeFile(path, content); }

void NativeBackend::addFolder(const std::string& path) { makeFolders(path); }

void NativeBackend::remove(const std::string& path) { std::filesystem::remove_all(path); }

void NativeBackend::makeReadOnly(const std::string& path) { changeMode(path, 0444); }

bool NativeBackend::deniesAccess() const { return true; }

void NativeBackend::makeUnreadable(const std::string& path) { changeMode(path, 0200); }

// Without read permission a folder cannot be listed, but its files can still be opened.
void NativeBackend::makeFolderUnreadable(const std::string& path) { changeMode(path, 0300); }

void NativeBackend::makeFolderUnwritable(const std::string& path) { changeMode(path, 0500); }

std::optional<std::string> NativeBackend::content(const std::string& path) const {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

namespace {

// Exit codes of the child process.
constexpr int passed = 0;
constexpr int failed = 1;
constexpr int unsupported = 2;

// Maps the user to itself in a new user namespace, where it is nobody at first.
bool mapUser(uid_t user, gid_t group) {
  const auto writeProc = [](const char* name, const std::string& text) {
    std::ofstream file(std::string("/proc/self/") + name);
    file << text;
    file.close();
    return static_cast<bool>(file);
  };
  const auto identity = [](auto id) { return std::to_string(id) + " " + std::to_string(id) + " 1\n"; };
  return writeProc("setgroups", "deny") && writeProc("uid_map", identity(user)) &&
         writeProc("gid_map", identity(group));
}

// Mounts a small file system in a mount namespace of this process alone, and fills it.
bool mountSmallDisk(const std::string& folder) {
  const bool root = ::getuid() == 0;
  if (root && ::seteuid(0) != 0) return false;
  const uid_t user = ::geteuid();
  const gid_t group = ::getegid();
  if (::unshare(root ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  if (!root && !mapUser(user, group)) return false;
  if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
  if (::mount("none", folder.c_str(), "tmpfs", 0, "size=256k,mode=777") != 0) return false;
  writeFile(folder + "/old", "old");
  const int filler = ::open((folder + "/filler").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
  const std::string block(4096, 'x');
  while (::write(filler, block.data(), block.size()) > 0) continue;
  ::close(filler);
  return filler >= 0;
}

}  // namespace

bool NativeBackend::onFullDisk(const FullDiskCheck& check, std::string& failure) {
  const std::string disk = disk_->folder / "disk";
  makeFolders(disk);
  const std::string report = disk_->folder / "report";
  const pid_t child = ::fork();
  if (child == 0) {
    int result = unsupported;
    try {
      if (mountSmallDisk(disk)) {
        const std::string message = check(disk_->files, disk);
        result = message.empty() ? passed : failed;
        writeFile(report, message);
      }
    } catch (const std::exception& error) {
      writeFile(report, error.what());
      result = failed;
    }
    ::_exit(result);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == unsupported) return false;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != passed)
    failure = content(report).value_or("the check did not finish");
  return true;
}

}  // namespace plimo
