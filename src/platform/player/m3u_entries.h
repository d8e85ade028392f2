// The entries of a playlist file, and which of them can be played.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/player/playlist_files.h"

namespace plimo {

// The entries of an M3U text in order: its lines (ended by LF or CR LF) without a byte-order mark, leading spaces,
// enclosing quotes, empty lines and comments.
std::vector<std::string> m3uEntries(std::string_view text);

// True for a name that ends in .m3u or .m3u8, case-insensitively.
bool isPlaylistName(std::string_view name);

// Only local regular files are playable: no URLs, no devices, no playlists, and no empty files. A relative entry is
// resolved against `folder`.
CheckedEntry checkEntry(std::string_view entry, const std::string& folder);

// A path from a text of the program: the system's bytes, or UTF-8 if its names are UTF-16.
std::filesystem::path toFilesystemPath(std::string_view text);
// The inverse.
std::string fromFilesystemPath(const std::filesystem::path& path);

}  // namespace plimo
