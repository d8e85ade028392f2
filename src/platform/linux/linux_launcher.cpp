#include "platform/linux/linux_launcher.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

#include "platform/linux/errno_mapping.h"

namespace plimo {

namespace {

// Gives the new process /dev/null as its standard streams, default signal handling and a session of its own.
class SpawnSettings {
 public:
  SpawnSettings() {
    ::posix_spawn_file_actions_init(&fileActions_);
    ::posix_spawn_file_actions_addopen(&fileActions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&fileActions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&fileActions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawnattr_init(&attributes_);
    sigset_t signals;
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;
  ~SpawnSettings() {
    ::posix_spawnattr_destroy(&attributes_);
    ::posix_spawn_file_actions_destroy(&fileActions_);
  }

  const posix_spawn_file_actions_t* fileActions() const { return &fileActions_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t fileActions_{};
  posix_spawnattr_t attributes_{};
};

// Waits for the process on a thread, so that it does not remain as a zombie. If no thread can be started, it remains
// one until this program ends, which is harmless.
void reap(pid_t process) {
  try {
    std::thread([process] {
      while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) continue;
    }).detach();
  } catch (const std::system_error&) {
    ::waitpid(process, nullptr, WNOHANG);
  }
}

}  // namespace

void LinuxLauncher::start(const std::string& program, const std::string& argument) {
  struct stat status {};
  if (::stat(program.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) throwError(ErrorNumber::fileNotFound, program);
  std::string programCopy = program;  // posix_spawn takes mutable strings
  std::string argumentCopy = argument;
  char* const arguments[] = {programCopy.data(), argumentCopy.data(), nullptr};
  const SpawnSettings settings;
  pid_t process = 0;
  if (::posix_spawn(&process, program.c_str(), settings.fileActions(), settings.attributes(), arguments, environ) !=
      0) {
    throwError(ErrorNumber::permissionDenied, program);
  }
  reap(process);
}

}  // namespace plimo
