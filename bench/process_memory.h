// The memory of this process as counted by the kernel.
#pragma once

namespace plimo::bench {

// Resident set sizes in KiB.
struct ProcessMemory {
  long now = 0;
  long peak = 0;  // since the process started or since resetPeakMemory
};

ProcessMemory processMemory();
void resetPeakMemory();

}  // namespace plimo::bench
