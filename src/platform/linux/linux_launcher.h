// Starts each program in a session of its own, so that it outlives this one.
#pragma once

#include <string>

#include "platform/launcher.h"

namespace plimo {

class LinuxLauncher : public Launcher {
 public:
  void start(const std::string& program, const std::string& argument) override;
};

}  // namespace plimo
