#include "process_usage.h"

#include <ctime>
#include <fstream>
#include <string>

namespace plimo::bench {

namespace {

// A value of /proc/self/status in KiB; 0 if there is none.
long readStatus(const std::string& name) {
  std::ifstream lines("/proc/self/status");
  for (std::string word; lines >> word;) {
    long value = 0;
    if (word == name + ":" && lines >> value) return value;
  }
  return 0;
}

}  // namespace

ProcessMemory processMemory() { return {readStatus("VmRSS"), readStatus("VmHWM")}; }

void resetPeakMemory() { std::ofstream("/proc/self/clear_refs") << "5"; }

double processorTime() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

}  // namespace plimo::bench
