// Which folders are drives on a machine that has no drive letters.
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

// Where the machine tells of itself.
struct SystemPaths {
  std::string mountInfo = "/proc/self/mountinfo";
  std::string blockDevices = "/sys/class/block";
  std::string home;  // empty: $HOME, else the one in the user's account
};

// C is the home folder. Each further mounted local file system of a device of its own follows, in the order of
// mounting, as D, E, ...: not the system's (/, /boot, /usr, ...), not the one that holds the home folder, and each
// device once.
std::vector<DriveRoot> defaultDriveTable(const SystemPaths& sources);

}  // namespace plimo
