// The machine that the program runs on; one file for each kind of machine, chosen by the build.
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

// The machine's files; with exactly the drives named, where any are.
std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named);
std::unique_ptr<Launcher> nativeLauncher();

}  // namespace plimo
