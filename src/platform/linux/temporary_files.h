// The names of temporary files, and removing those that a killed process has left.
//
// A process holds a lock on its temporary files (flock(2)), which ends with the process: a temporary file without a
// lock has been left. A process id in the name would not tell, because ids are used again.
#pragma once

#include <string>

namespace plimo {

// A new name, different from all others of this process.
std::string makeTemporaryName();

// Marks a temporary file as in use while it is open. If the file system has no locks, nobody removes its temporary
// files.
void lockTemporary(int file);

// Removes the user's temporary files in an open folder that no process holds. Errors are ignored.
void removeLeftoversIn(int folder);

}  // namespace plimo
