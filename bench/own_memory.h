// What this process holds in memory, as the system counts it.
#pragma once

namespace plimo::bench {

// KiB.
struct OwnMemory {
  long now = 0;
  long most = 0;  // since the process began, or since `forgetMost`
};

OwnMemory ownMemory();
void forgetMost();

}  // namespace plimo::bench
