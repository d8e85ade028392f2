// The heap of the process.
#pragma once

namespace plimo {

// Lets the heap keep up to 8 MiB of freed memory, and take blocks of up to 4 MiB from it. By default glibc returns the
// memory that reading a catalogue has used, and the first command afterwards gets it back one page fault at a time.
void keepFreedMemory();

}  // namespace plimo
