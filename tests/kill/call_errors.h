// The errors that a system call can have on a disk that is full, read-only, failing, or used by other programs.
#pragma once

#include <string>
#include <vector>

#include "kill/tracer.h"

namespace plimo {

// False for calls that only concern memory, threads and signals: the process is not killed at them.
bool concernsFiles(long number);

// The name of a call, or its number.
std::string callName(long number);

// What is decided about a call, one after the other. The last may be a transfer of half the bytes.
std::vector<Decision> failuresOf(const SystemCall& call);

}  // namespace plimo
