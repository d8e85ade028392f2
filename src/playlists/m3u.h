// Playlist files: the full path of one song a line, each line ended by CR LF, nothing else.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

inline constexpr std::string_view defaultPlaylistName = "default.m3u";
inline constexpr std::string_view runPlaylistName = "list.m3u";

// One line, the path as it stands.
inline void appendPath(std::string& playlist, std::string_view path) {
  playlist += path;
  playlist += "\r\n";
}

}  // namespace plimo
