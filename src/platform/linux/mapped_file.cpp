#include "platform/linux/mapped_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace plimo {

// Atomic, because the handler may run on any thread at any time.
struct MappedRange {
  std::atomic<bool> used{false};
  std::atomic<bool> truncated{false};
  std::atomic<char*> begin{nullptr};
  std::atomic<char*> end{nullptr};  // null: nothing is mapped
};

namespace {

static_assert(std::atomic<char*>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

std::array<MappedRange, 16> ranges;
std::uintptr_t pageSize = 0;
struct sigaction previousAction {};

MappedRange* takeRange() {
  for (MappedRange& range : ranges) {
    if (!range.used.exchange(true)) return &range;
  }
  return nullptr;
}

void callPreviousHandler(int signal, siginfo_t* info, void* context) {
  if ((previousAction.sa_flags & SA_SIGINFO) != 0) {
    previousAction.sa_sigaction(signal, info, context);
  } else if (previousAction.sa_handler != SIG_DFL && previousAction.sa_handler != SIG_IGN) {
    previousAction.sa_handler(signal);
  } else if (previousAction.sa_handler == SIG_DFL || info->si_code > 0) {  // a fault cannot be ignored
    ::signal(signal, SIG_DFL);
    ::raise(signal);  // ends the program when this handler returns
  }
}

// Makes only system calls, which are safe in a signal handler.
void handleBusError(int signal, siginfo_t* info, void* context) {
  const int savedError = errno;
  char* const address = static_cast<char*>(info->si_addr);
  const bool isFault = info->si_code > 0;  // not sent by a program
  bool handled = false;
  for (MappedRange& range : ranges) {
    char* const end = range.end;
    if (!isFault || address >= end || address < range.begin) continue;
    range.truncated = true;
    char* const page = address - reinterpret_cast<std::uintptr_t>(address) % pageSize;
    handled = ::mmap(page, static_cast<std::size_t>(end - page), PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1,
                     0) != MAP_FAILED;
  }
  if (!handled) callPreviousHandler(signal, info, context);
  errno = savedError;
}

bool installHandler() {
  pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  struct sigaction action {};
  action.sa_sigaction = handleBusError;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  ::sigemptyset(&action.sa_mask);
  return ::sigaction(SIGBUS, &action, &previousAction) == 0;
}

}  // namespace

std::unique_ptr<MappedFile> MappedFile::map(int fd, std::size_t size) {
  static const bool handlerInstalled = installHandler();
  if (!handlerInstalled) return nullptr;
  MappedRange* const range = takeRange();
  if (range == nullptr) return nullptr;
  void* const start = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd, 0);
  if (start == MAP_FAILED) {
    range->used = false;
    return nullptr;
  }
  return std::make_unique<MappedFile>(*range, start, size);
}

MappedFile::MappedFile(MappedRange& range, void* start, std::size_t size) : range_(range), start_(start), size_(size) {
  range_.truncated = false;
  range_.begin = static_cast<char*>(start);
  range_.end = static_cast<char*>(start) + size;
}

MappedFile::~MappedFile() {
  range_.end = nullptr;
  ::munmap(start_, size_);
  range_.used = false;
}

bool MappedFile::truncated() const { return range_.truncated; }

void MappedFile::advise(std::size_t begin, std::size_t end, int advice) {
  begin -= begin % pageSize;
  if (end != size_) end -= end % pageSize;
  if (begin < end) ::madvise(static_cast<char*>(start_) + begin, end - begin, advice);
}

}  // namespace plimo
