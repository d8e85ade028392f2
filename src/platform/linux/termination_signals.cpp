#include "platform/linux/termination_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>

namespace plimo {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT};

// The self-pipe technique: a signal handler may do little more than write into a pipe.
std::atomic<int> pipeEnd{-1};

void handleSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = ::write(pipeEnd, &byte, 1);
}

}  // namespace

TerminationSignals::TerminationSignals() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = UniqueFd(ends[0]);
  writeEnd_ = UniqueFd(ends[1]);
  pipeEnd = ends[1];
  for (const int number : terminationSignals) std::signal(number, handleSignal);
}

TerminationSignals::~TerminationSignals() {
  if (!readEnd_) return;
  for (const int number : terminationSignals) std::signal(number, SIG_DFL);
  pipeEnd = -1;
}

bool TerminationSignals::take() {
  char byte = 0;
  bool taken = false;
  while (::read(fd(), &byte, 1) == 1) taken = true;
  return taken;
}

}  // namespace plimo
