// The platform that the program runs on, defined in one file for each operating system.
#pragma once

#include <functional>
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

// While the returned object exists, calls `requested` from the event loop if the system asks the program to end. Needs
// the application object.
std::shared_ptr<void> onTerminationRequest(std::function<void()> requested);

}  // namespace plimo
