// Where Winamp is: the folder that holds it, and the path by which it is started.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "controls/drive_list.h"
#include "platform/file_system_object.h"

namespace plimo {

// The name of the file in the folder whose short name is "winamp.exe" in any case; nothing where there is none. Throws
// as FileSystemObject::contents does.
std::optional<std::string> winampIn(FileSystemObject& files, std::string_view folder);

// The path by which the program found in that folder is started: "winamp.exe" in lower case, unless the machine tells
// cases apart and has it under `found` only.
std::string winampPath(FileSystemObject& files, std::string_view folder, std::string_view found);

// The folder of a stored Winamp path, or the nearest one above it that exists; nothing where none does. On a machine
// that does not tell cases apart it is in capitals, as the path is compared.
std::optional<std::string> folderOfWinamp(FileSystemObject& files, std::string_view winampPath);

// The letter of the drive whose root folder holds the folder, the nearest where several do; 0 where none does.
char driveHolding(FileSystemObject& files, std::span<const DriveList::Entry> drives, std::string_view folder);

}  // namespace plimo
