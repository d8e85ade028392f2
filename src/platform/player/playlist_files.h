// The files that a playlist consists of, as the system sees them; defined in the folder of each system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plimo {

enum class Playable { yes, missing, empty, notLocal, notASong };

struct CheckedEntry {
  Playable playable = Playable::missing;
  std::string path;  // absolute; if playable
};

// Playable is a regular file that is not empty. A relative name is resolved against `folder`, or against the current
// directory if that is empty.
CheckedEntry checkFile(std::string_view name, const std::string& folder);

// The whole content of a regular file; nullopt if there is none of this name. Reading never waits for a device.
std::optional<std::string> readPlaylistFile(const std::string& path);

// The folder of a file, for relative entries of the playlist.
std::string folderOfPlaylist(const std::string& path);

}  // namespace plimo
