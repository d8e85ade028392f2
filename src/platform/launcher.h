// Starts other programs.
#pragma once

#include <string>

namespace plimo {

class Launcher {
 public:
  Launcher() = default;
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;
  virtual ~Launcher() = default;

  // Starts the program with one argument, without a shell, its window minimised with the focus where the machine knows
  // that; does not wait for it. The command line is the program, one blank, the argument. Throws 53 where there is no
  // such program, 70 where it may not be started.
  virtual void start(const std::string& program, const std::string& argument) = 0;
};

}  // namespace plimo
