#include "kill/tracer.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <map>
#include <optional>
#include <system_error>

namespace plimo {

namespace {

constexpr int firstMark = -1000;  // closing such a descriptor does nothing
constexpr int syscallStop = SIGTRAP | 0x80;

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

// The registers of x86-64; the build leaves this program out on other processors.
class Registers {
 public:
  explicit Registers(pid_t thread) : thread_(thread) {
    if (::ptrace(PTRACE_GETREGS, thread_, nullptr, &registers_) != 0) fail("reading the registers");
  }
  void store() const {
    if (::ptrace(PTRACE_SETREGS, thread_, nullptr, &registers_) != 0) fail("writing the registers");
  }
  // No system call is made.
  void skipCall() { registers_.orig_rax = static_cast<unsigned long long>(-1); }
  void setResult(int error) { registers_.rax = static_cast<unsigned long long>(-static_cast<long long>(error)); }
  void halveSize(long number) {
    auto& size = number == SYS_copy_file_range ? registers_.r8 : registers_.rdx;
    size = std::max(size / 2, 1ULL);
  }

 private:
  pid_t thread_;
  user_regs_struct registers_{};
};

// The state of one traced process, with all its threads.
class Tracer {
 public:
  Tracer(pid_t process, const Traced& traced) : process_(process), traced_(traced) {}

  Ended run() {
    int status = 0;
    if (::waitpid(process_, &status, 0) != process_ || !WIFSTOPPED(status)) fail("waiting for the traced process");
    if (::ptrace(PTRACE_SETOPTIONS, process_, nullptr,
                 PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL) != 0) {
      fail("tracing");
    }
    resume(process_, 0);
    for (;;) {
      const pid_t thread = ::waitpid(-1, &status, __WALL);
      if (thread < 0 && errno == EINTR) continue;
      if (thread < 0) fail("waiting for the traced process");
      if (!WIFSTOPPED(status)) {
        if (thread != process_) continue;
        Ended ended;
        ended.killed = killed_;
        if (WIFSIGNALED(status) && !killed_) ended.signal = WTERMSIG(status);
        if (WIFEXITED(status)) ended.status = WEXITSTATUS(status);
        return ended;
      }
      const int signal = WSTOPSIG(status);
      if (signal == syscallStop) handleStop(thread);
      // A new thread starts with SIGSTOP, and each event of the tracer is a SIGTRAP: neither is for the program.
      resume(thread, signal == syscallStop || signal == SIGTRAP || signal == SIGSTOP ? 0 : signal);
    }
  }

 private:
  // A thread may have been killed meanwhile, so errors do not matter.
  static void resume(pid_t thread, int signal) { ::ptrace(PTRACE_SYSCALL, thread, nullptr, signal); }

  void handleStop(pid_t thread) {
    __ptrace_syscall_info info{};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info) <= 0) return;  // killed
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) handleCall(thread, info);
    if (info.op != PTRACE_SYSCALL_INFO_EXIT) return;
    const auto error = errors_.find(thread);
    if (error == errors_.end()) return;
    Registers registers(thread);
    registers.setResult(error->second);
    registers.store();
    errors_.erase(error);
  }

  void handleCall(pid_t thread, const __ptrace_syscall_info& info) {
    SystemCall call;
    call.number = static_cast<long>(info.entry.nr);
    std::copy(std::begin(info.entry.args), std::end(info.entry.args), call.arguments.begin());
    const int descriptor = static_cast<int>(call.arguments[0]);
    if (call.number == SYS_close && descriptor <= firstMark) {
      if (traced_.marked) traced_.marked(firstMark - descriptor);
      return;
    }
    const Decision decision = traced_.calling ? traced_.calling(call) : Decision::proceed();
    switch (decision.kind) {
      case Decision::Kind::proceed:
        break;
      case Decision::Kind::kill:
        killed_ = true;
        ::kill(process_, SIGKILL);
        break;
      case Decision::Kind::fail: {
        Registers registers(thread);
        registers.skipCall();
        registers.store();
        errors_[thread] = decision.error;
        break;
      }
      case Decision::Kind::shorten: {
        Registers registers(thread);
        registers.halveSize(call.number);
        registers.store();
        break;
      }
    }
  }

  pid_t process_;
  const Traced& traced_;
  std::map<pid_t, int> errors_;  // of the threads inside a call that fails
  bool killed_ = false;
};

}  // namespace

void mark(int number) { ::syscall(SYS_close, firstMark - number); }

bool canTrace() {
  const pid_t child = ::fork();
  if (child < 0) return false;
  if (child == 0) ::_exit(::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 ? 0 : 1);
  int status = 0;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

Ended trace(const std::function<int()>& body, const Traced& traced) {
  const pid_t child = ::fork();
  if (child < 0) fail("fork");
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0 || ::raise(SIGSTOP) != 0) ::_exit(127);
    ::_exit(body());
  }
  return Tracer(child, traced).run();
}

}  // namespace plimo
