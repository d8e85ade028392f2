// Playlist files: the full path of one song per line, each line ended by CR LF, nothing else.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/string_arena.h"
#include "catalogue/song_lookup.h"
#include "platform/file_system_object.h"

namespace plimo {

inline constexpr std::string_view defaultPlaylistName = "default.m3u";
inline constexpr std::string_view playQueueName = "list.m3u";  // what is being played

// True for a name that ends in "m3u" in any case.
bool isPlaylistFile(std::string_view name);

// The values of a playlist's content, in order: a comma ends a value, too. Views into the content, or into `unescaped`
// if quotes had to be removed. `path` is the file named in errors.
std::vector<std::string_view> readPlaylist(std::string_view content, const std::string& path, StringArena& unescaped);

struct SavedPlaylist {
  SongPaths paths;  // to write them again
  std::size_t lines = 0;
};

// Replaces the playlist by the paths of all records of each song, in order; a song without a record is left out. The
// catalogue is read once, to its end; without songs, not at all. Throws as reading the catalogue and writing the
// playlist do; the old playlist stays then.
SavedPlaylist writePlaylist(FileSystemObject& files, const std::string& playlist, Force force,
                            const std::string& catalogue, std::span<const std::string_view> songs);

// Writes the paths of the first `songs` songs and commits the file. Returns the number of paths. Throws as writing
// does.
std::size_t writePlaylist(FileReplacement& file, const SongPaths& paths, std::size_t songs);

}  // namespace plimo
