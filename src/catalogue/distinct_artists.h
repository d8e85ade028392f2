// The artists of a catalogue.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system_object.h"

namespace plimo {

// Each artist once, as shown in the lists (trimmed, a to z upper-cased), in order of first appearance. Throws as
// CatalogueFile does, and RuntimeError 62 at a truncated record.
std::vector<std::string> distinctArtists(FileSystemObject& files, const std::string& catalogue);

}  // namespace plimo
