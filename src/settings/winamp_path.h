// The file path.kvx: one text, the full path of the Winamp executable.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

inline constexpr std::string_view winampPathName = "path.kvx";

// Throws as FileSystemObject::openForReading does, and 62 if the file is empty.
std::string readWinampPath(FileSystemObject& files, const std::string& file);

// Throws as FileSystemObject::replaceFile and its commit do.
void writeWinampPath(FileSystemObject& files, const std::string& file, std::string_view winamp);

}  // namespace plimo
