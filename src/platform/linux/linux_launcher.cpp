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

// What the new program starts with: no terminal, no blocked or ignored signals, a session of its own.
class Surroundings {
 public:
  Surroundings() {
    ::posix_spawn_file_actions_init(&files_);
    ::posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawnattr_init(&attributes_);
    sigset_t signals;
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;
  ~Surroundings() {
    ::posix_spawnattr_destroy(&attributes_);
    ::posix_spawn_file_actions_destroy(&files_);
  }

  const posix_spawn_file_actions_t* files() const { return &files_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

// Takes the program's exit status when it comes, so that no ended process is left standing. Without a thread to wait
// in, it is left standing: harmless, and gone with this program.
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
  if (::stat(program.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) fail(ErrorNumber::fileNotFound, program);
  std::string name = program;
  std::string only = argument;
  char* const arguments[] = {name.data(), only.data(), nullptr};
  const Surroundings surroundings;
  pid_t process = 0;
  if (::posix_spawn(&process, program.c_str(), surroundings.files(), surroundings.attributes(), arguments, environ) !=
      0) {
    fail(ErrorNumber::permissionDenied, program);
  }
  reap(process);
}

}  // namespace plimo
