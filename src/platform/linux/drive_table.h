// Assigns drive letters to folders, because Linux has none.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system_object.h"

namespace plimo {

struct DriveRoot {
  char letter = 0;  // A to Z
  DriveType type = DriveType::unknown;
  std::string root;
};

// System files that tests replace.
struct SystemPaths {
  std::string mounts = "/proc/self/mounts";
  std::string blockDevices = "/sys/class/block";
  std::string home;  // empty: $HOME, else the one in the user's account
};

// C is the home folder. D, E, ... are the other mounted local file systems with a device, in the order of mounting,
// each device once; without those of the system (/, /boot, /usr, ...) and the one that contains the home folder.
std::vector<DriveRoot> defaultDriveTable(const SystemPaths& paths);

}  // namespace plimo
