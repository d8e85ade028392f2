#include "window/drive_rows.h"

#include "base/text.h"

namespace plimo {

std::string kindName(DriveType type) {
  switch (type) {
    case DriveType::cdrom:
      return "CDROM";
    case DriveType::fixed:
      return "Hard Drive";
    case DriveType::removable:
      return "REMOVABLE";
    case DriveType::network:
      return "Network";
    case DriveType::ramdisk:
      return "RAM Disk";
    case DriveType::unknown:
      break;
  }
  return "Unknown";
}

std::string driveRow(const Drive& drive) { return std::string(1, drive.letter) + ": " + kindName(drive.type); }

std::string_view driveLetterOf(std::string_view row) { return prefixBefore(row, ':'); }

}  // namespace plimo
