// The playlist file that carries a run of songs to the player.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

// Writes the playlist anew: for each name, in order, the paths of all its records in the catalogue. A name without a
// record is left out. The catalogue is read once, to its end; with no names, not at all. Throws what reading the
// catalogue and writing the playlist throw; the old playlist stands then.
void writePlayQueue(FileSystemObject& files, const std::string& playlist, const std::string& catalogue,
                    std::span<const std::string_view> names);

}  // namespace plimo
