// The new path of a renamed song.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

// The answer that the rename box proposes: the file's name without its extension (what follows its last ".").
std::string_view proposedName(std::string_view fileName);

// The path of the file under its new name: in the same folder, always with ".mp3". Changes nothing. Throws
// RuntimeError 52 (a separator in the name), 53 (the file does not exist), 70 (the new path is the file itself).
std::string renamedPath(FileSystemObject& files, const std::string& path, const std::string& name);

}  // namespace plimo
