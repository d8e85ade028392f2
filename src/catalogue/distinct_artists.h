// The artists of a catalogue.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system_object.h"

namespace plimo {

// Each artist once, as the lists show it (trimmed, a to z upper-cased), in the order of first appearance. Throws as
// opening the catalogue does, and 62 where a record breaks off.
std::vector<std::string> distinctArtists(FileSystemObject& files, const std::string& catalogue);

}  // namespace plimo
