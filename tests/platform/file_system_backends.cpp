#include "platform/file_system_backends.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace plimo {

// --- FakeBackend ---

FakeBackend::FakeBackend() {
  files_.remove("C:\\Plimo");
  files_.addDrive('D', DriveType::cdrom, false);
}

void FakeBackend::setFlags(const std::string& path, FileFlags flags) {
  files_.addTextFile(path, files_.fileContent(path).value(), flags);
}

void FakeBackend::makeReadOnly(const std::string& path) { setFlags(path, {true, false, false}); }

void FakeBackend::makeUnreadable(const std::string& path) { setFlags(path, {false, false, true}); }

bool FakeBackend::onFullDisk(const FullDiskCheck& check, std::string& failure) {
  files_.addTextFile("C:\\full\\old", "old");
  files_.setDiskFull('C', true);
  failure = check(files_, "C:\\full");
  return true;
}

// --- LinuxBackend ---

LinuxBackend::LinuxBackend()
    : files_(std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()},
                                    {'D', DriveType::cdrom, folder_ / "not-there"}}) {}

void LinuxBackend::addFile(const std::string& path, const std::string& content) { writeFile(path, content); }

void LinuxBackend::addFolder(const std::string& path) { makeFolders(path); }

void LinuxBackend::remove(const std::string& path) { std::filesystem::remove_all(path); }

void LinuxBackend::makeReadOnly(const std::string& path) { changeMode(path, 0444); }

void LinuxBackend::makeUnreadable(const std::string& path) { changeMode(path, 0200); }

// Without read permission a folder cannot be listed, but its files can still be opened.
void LinuxBackend::makeFolderUnreadable(const std::string& path) { changeMode(path, 0300); }

void LinuxBackend::makeFolderUnwritable(const std::string& path) { changeMode(path, 0500); }

std::optional<std::string> LinuxBackend::content(const std::string& path) const {
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

bool LinuxBackend::onFullDisk(const FullDiskCheck& check, std::string& failure) {
  const std::string disk = folder_ / "disk";
  makeFolders(disk);
  const std::string report = folder_ / "report";
  const pid_t child = ::fork();
  if (child == 0) {
    int result = unsupported;
    try {
      if (mountSmallDisk(disk)) {
        const std::string message = check(files_, disk);
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
