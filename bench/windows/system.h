// What the benchmarks use of Windows.
#pragma once

#include "platform/windows/process_setup.h"
#include "platform/windows/windows_files.h"

namespace plimo::bench {

using SystemFiles = WindowsFiles;

// A folder that exists, for a drive that is not scanned, and the one that the paths of a generated catalogue are in.
inline constexpr const char* driveRoot = "C:\\";
inline constexpr const char* catalogueRoot = "C:\\Music";

// Sets up the process as the program does. To be called first in main.
inline void prepareProcess() { hardenProcess(); }

}  // namespace plimo::bench
