// Runs a function in a process of its own and decides about each of its system calls (ptrace(2)).
#pragma once

#include <array>
#include <cstdint>
#include <functional>

namespace plimo {

struct SystemCall {
  long number = 0;  // SYS_...
  std::array<std::uint64_t, 6> arguments{};
};

// What happens to a system call that is about to be made.
struct Decision {
  enum class Kind { proceed, kill, fail, shorten };
  Kind kind = Kind::proceed;
  int error = 0;  // for `fail`: the call is not made and sets errno to this

  static Decision proceed() { return {}; }
  static Decision kill() { return {Kind::kill, 0}; }
  static Decision fail(int error) { return {Kind::fail, error}; }
  // A call that transfers bytes is made with half of them.
  static Decision shorten() { return {Kind::shorten, 0}; }
};

struct Traced {
  // For each call of any thread, before it is made.
  std::function<Decision(const SystemCall& call)> calling;
  // For each mark(number); the process stands still meanwhile.
  std::function<void(int number)> marked;
};

// Called in the traced process, to tell the tracer how far it is. `number` is at least 0.
void mark(int number);

struct Ended {
  bool killed = false;  // by a decision
  int signal = 0;       // or by this signal; 0: by none
  int status = 0;       // else the exit status
};

// False if this system does not permit tracing.
bool canTrace();

// Runs `body` in a child process, which ends with its result. The calling process must have only one thread.
// Throws std::system_error if the child cannot be traced.
Ended trace(const std::function<int()>& body, const Traced& traced);

}  // namespace plimo
