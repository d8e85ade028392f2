// The drives of the system.
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

// The drives with a letter, in the order of the alphabet, ready or not.
std::vector<DriveRoot> systemDrives();

}  // namespace plimo
