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

  // Starts the program with one argument, without a shell and without waiting for it; its window is minimised with the
  // focus if the machine supports that. The command line is the program, one blank, the argument. Throws 53 if there is
  // no such program, 70 if it may not be started.
  virtual void start(const std::string& program, const std::string& argument) = 0;
};

}  // namespace plimo
