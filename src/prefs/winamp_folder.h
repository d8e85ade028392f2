// Where Winamp is: its folder, and the path by which it is started.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

// The name of the file in the folder whose short name is "winamp.exe" in any case; nullopt if there is none. Throws as
// FileSystemObject::contents does.
std::optional<std::string> winampIn(FileSystemObject& files, std::string_view folder);

// The path by which the program found in that folder is started: "winamp.exe" in lower case, unless the machine is
// case-sensitive and has it only as `found`.
std::string winampPath(FileSystemObject& files, std::string_view folder, std::string_view found);

// The folder of a stored Winamp path, or its nearest ancestor that exists; nullopt if none does. In capitals on a
// machine that is not case-sensitive.
std::optional<std::string> folderOfWinamp(FileSystemObject& files, std::string_view winampPath);

// The letter of the drive whose root folder contains the folder, the nearest one if there are several; 0 if there is
// none.
char driveHolding(FileSystemObject& files, std::string_view folder);

}  // namespace plimo
