// Measures how long something takes: by the clock on the wall, and by what the processor has spent on it.
#pragma once

#include <chrono>
#include <ctime>

namespace plimo::bench {

// Seconds.
struct Lap {
  double wall = 0;
  double processor = 0;
};

class Stopwatch {
 public:
  Lap lap() const {
    const double processor = static_cast<double>(std::clock() - processor_) / CLOCKS_PER_SEC;
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - wall_).count(), processor};
  }

 private:
  std::chrono::steady_clock::time_point wall_ = std::chrono::steady_clock::now();
  std::clock_t processor_ = std::clock();
};

}  // namespace plimo::bench
