#include "process_usage.h"

#include <windows.h>
// It comes first: this one needs it.
#include <psapi.h>

#include <cstdint>

namespace plimo::bench {

namespace {

// Seconds; the system counts in units of 100 ns.
double seconds(const FILETIME& time) {
  return static_cast<double>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime) / 1e7;
}

}  // namespace

ProcessMemory processMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  if (!::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters)) return {};
  return {static_cast<long>(counters.WorkingSetSize / 1024), static_cast<long>(counters.PeakWorkingSetSize / 1024)};
}

void resetPeakMemory() {}

double processorTime() {
  FILETIME created{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  if (!::GetProcessTimes(::GetCurrentProcess(), &created, &ended, &kernel, &user)) return 0;
  return seconds(kernel) + seconds(user);
}

}  // namespace plimo::bench
