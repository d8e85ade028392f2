// The entries of a playlist file, and which of them can be played.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// The entries of an M3U text in order: its lines (ended by LF or CR LF) without a byte-order mark, leading spaces,
// enclosing quotes, empty lines and comments.
std::vector<std::string> m3uEntries(std::string_view text);

// True for a name that ends in .m3u or .m3u8, case-insensitively.
bool isPlaylistName(std::string_view name);

enum class Playable { yes, missing, empty, notLocal, notASong };

struct CheckedEntry {
  Playable playable = Playable::missing;
  std::string path;  // absolute; if playable
};

// Only local regular files are playable: no URLs, no devices, no playlists, and no empty files. Pseudo files as in
// /proc, which may block for ever when read, have the size 0 too. A relative entry is resolved against `folder`.
CheckedEntry checkEntry(std::string_view entry, const std::filesystem::path& folder);

// A path from a text of the program: the system's bytes, or UTF-8 if its names are UTF-16.
std::filesystem::path toFilesystemPath(std::string_view text);
// The inverse.
std::string fromFilesystemPath(const std::filesystem::path& path);

}  // namespace plimo
