#include "platform/test_machines.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

namespace plimo {

// --- In memory ---

MemoryMachine::MemoryMachine() {
  files_.remove("C:\\Plimo");
  files_.addDrive('D', DriveType::cdrom, false);
}

void MemoryMachine::setFlags(const std::string& path, FileFlags flags) {
  files_.addTextFile(path, files_.fileContent(path).value(), flags);
}

void MemoryMachine::makeReadOnly(const std::string& path) { setFlags(path, {true, false, false}); }

void MemoryMachine::makeUnreadable(const std::string& path) { setFlags(path, {false, false, true}); }

bool MemoryMachine::onFullDisk(const FullDiskCheck& check, std::string& failure) {
  files_.addTextFile("C:\\full\\old", "old");
  files_.setDiskFull('C', true);
  failure = check(files_, "C:\\full");
  return true;
}

// --- On the real disk ---

PosixMachine::PosixMachine()
    : files_(std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()},
                                    {'D', DriveType::cdrom, folder_ / "not-there"}}) {}

void PosixMachine::addFile(const std::string& path, const std::string& content) { writeFile(path, content); }

void PosixMachine::addFolder(const std::string& path) { makeFolders(path); }

void PosixMachine::makeReadOnly(const std::string& path) { changeMode(path, 0444); }

void PosixMachine::makeUnreadable(const std::string& path) { changeMode(path, 0200); }

// A folder that may be entered, but not listed: what is in it can still be opened.
void PosixMachine::makeFolderUnreadable(const std::string& path) { changeMode(path, 0300); }

void PosixMachine::makeFolderUnwritable(const std::string& path) { changeMode(path, 0500); }

std::optional<std::string> PosixMachine::content(const std::string& path) const {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

namespace {

constexpr int holds = 0;
constexpr int fails = 1;
constexpr int cannotTell = 2;

// Inside a name space of its own an ordinary user is nobody until it is told who is who.
bool nameUser(uid_t user, gid_t group) {
  const auto tell = [](const char* what, const std::string& text) {
    std::ofstream file(std::string("/proc/self/") + what);
    file << text;
    file.close();
    return static_cast<bool>(file);
  };
  const auto itself = [](auto id) { return std::to_string(id) + " " + std::to_string(id) + " 1\n"; };
  return tell("setgroups", "deny") && tell("uid_map", itself(user)) && tell("gid_map", itself(group));
}

// A small file system in a name space of this process alone, filled to the brim.
bool mountSmallDisk(const std::string& folder) {
  const bool root = ::getuid() == 0;
  if (root && ::seteuid(0) != 0) return false;
  const uid_t user = ::geteuid();
  const gid_t group = ::getegid();
  if (::unshare(root ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  if (!root && !nameUser(user, group)) return false;
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

bool PosixMachine::onFullDisk(const FullDiskCheck& check, std::string& failure) {
  const std::string disk = folder_ / "disk";
  makeFolders(disk);
  const std::string report = folder_ / "report";
  const pid_t child = ::fork();
  if (child == 0) {
    int result = cannotTell;
    try {
      if (mountSmallDisk(disk)) {
        const std::string told = check(files_, disk);
        result = told.empty() ? holds : fails;
        writeFile(report, told);
      }
    } catch (const std::exception& error) {
      writeFile(report, error.what());
      result = fails;
    }
    ::_exit(result);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == cannotTell) return false;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != holds) failure = content(report).value_or("the check broke off");
  return true;
}

}  // namespace plimo
