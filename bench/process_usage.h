// The memory and the processor time of this process as counted by the system; defined for each operating system.
#pragma once

namespace plimo::bench {

// Resident set sizes (on Windows: working sets) in KiB.
struct ProcessMemory {
  long now = 0;
  long peak = 0;  // since the process started, or on Linux since resetPeakMemory
};

ProcessMemory processMemory();
// Does nothing on Windows, which counts the peak of the whole process only.
void resetPeakMemory();

// Seconds of all threads since the process started.
double processorTime();

}  // namespace plimo::bench
