// Assigns drive letters to folders, because Linux has none.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
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

// The drives of a machine: fixed ones, or those of the system, read again by each call. May be copied to other threads.
class DriveRoots {
 public:
  explicit DriveRoots(SystemPaths paths) : systemPaths_(std::move(paths)) {}
  explicit DriveRoots(std::vector<DriveRoot> drives) : fixedDrives_(std::move(drives)) {}

  std::vector<DriveRoot> all() const;
  // True for the root folder of a drive, however its path is spelled.
  bool isRoot(std::string_view folder) const;

 private:
  SystemPaths systemPaths_;
  std::optional<std::vector<DriveRoot>> fixedDrives_;
};

}  // namespace plimo
