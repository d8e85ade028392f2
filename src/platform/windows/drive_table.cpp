#include "platform/windows/drive_table.h"

#include <windows.h>

#include "platform/windows/native_path.h"

namespace plimo {

namespace {

DriveType typeOf(const std::string& root) {
  switch (::GetDriveTypeW(toWide(root).c_str())) {
    case DRIVE_REMOVABLE:
      return DriveType::removable;
    case DRIVE_FIXED:
      return DriveType::fixed;
    case DRIVE_REMOTE:
      return DriveType::network;
    case DRIVE_CDROM:
      return DriveType::cdrom;
    case DRIVE_RAMDISK:
      return DriveType::ramdisk;
    default:
      return DriveType::unknown;
  }
}

}  // namespace

std::vector<DriveRoot> systemDrives() {
  std::vector<DriveRoot> drives;
  const DWORD letters = ::GetLogicalDrives();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((letters >> (letter - 'A') & 1U) == 0) continue;
    const std::string root = std::string(1, letter) + ":\\";
    drives.push_back({letter, typeOf(root), root});
  }
  return drives;
}

}  // namespace plimo
