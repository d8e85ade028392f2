// The platform that the program runs on, defined in one file for each operating system.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/launcher.h"

namespace plimo {

struct NamedDrive {
  char letter = 0;
  DriveType type = DriveType::fixed;
  std::string root;
};

// The system's files; with exactly the named drives if there are any.
std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named);
std::unique_ptr<Launcher> nativeLauncher();

}  // namespace plimo
