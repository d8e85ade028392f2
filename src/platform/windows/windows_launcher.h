// Starts other programs by their full path.
#pragma once

#include <string>

#include "platform/launcher.h"

namespace plimo {

class WindowsLauncher : public Launcher {
 public:
  void start(const std::string& program, const std::string& argument) override;
};

}  // namespace plimo
