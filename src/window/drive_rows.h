// Drives as the drive lists show them: "C: Hard Drive".
#pragma once

#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

// "Hard Drive", "CDROM", "REMOVABLE", ...
std::string kindName(DriveType type);

std::string driveRow(const Drive& drive);

// The part of a row before its first colon.
std::string_view driveLetterOf(std::string_view row);

}  // namespace plimo
