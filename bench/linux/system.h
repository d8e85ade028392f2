// What the benchmarks use of Linux.
#pragma once

#include "platform/linux/heap.h"
#include "platform/linux/linux_files.h"

namespace plimo::bench {

using SystemFiles = LinuxFiles;

// A folder that exists, for a drive that is not scanned, and the one that the paths of a generated catalogue are in.
inline constexpr const char* driveRoot = "/srv";
inline constexpr const char* catalogueRoot = "/srv/music";

// Sets up the process as the program does. To be called first in main.
inline void prepareProcess() { keepFreedMemory(); }

}  // namespace plimo::bench
