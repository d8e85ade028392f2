// Playlist files: the full path of one song a line, each line ended by CR LF, nothing else.
#pragma once

#include <cstddef>
#include <string_view>

#include "catalogue/song_lookup.h"
#include "platform/file_system_object.h"

namespace plimo {

inline constexpr std::string_view defaultPlaylistName = "default.m3u";
inline constexpr std::string_view playQueueName = "list.m3u";

// Writes the paths of the first `songs` songs' records, song by song, and commits the file. Throws as writing does.
void writePlaylist(FileReplacement& file, const SongPaths& paths, std::size_t songs);

}  // namespace plimo
