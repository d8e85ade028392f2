// Measures wall-clock and CPU time.
#pragma once

#include <chrono>

#include "process_usage.h"

namespace plimo::bench {

// Seconds.
struct Elapsed {
  double wall = 0;
  double cpu = 0;  // of all threads of the process
};

class Stopwatch {
 public:
  Elapsed elapsed() const {
    const double cpu = processorTime() - cpu_;
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - wall_).count(), cpu};
  }

 private:
  std::chrono::steady_clock::time_point wall_ = std::chrono::steady_clock::now();
  double cpu_ = processorTime();
};

}  // namespace plimo::bench
