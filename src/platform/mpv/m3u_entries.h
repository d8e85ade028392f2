// What a playlist file asks to be played.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace plimo {

// The entries of an M3U text in order, as they stand: lines ended by LF or CR LF, without a byte-order mark, leading
// blanks, enclosing quotes, empty lines and comment lines.
std::vector<std::string> m3uEntries(std::string_view text);

// True for a name that ends in .m3u or .m3u8, in any case.
bool isPlaylistName(std::string_view name);

enum class Playable { yes, missing, empty, notLocal, notASong };

struct CheckedEntry {
  Playable playable = Playable::missing;
  std::string path;  // absolute; where playable
};

// Only regular files of this machine are playable: no address of another protocol, no device, no further playlist, and
// nothing without content, which is also how files look that the system makes up and whose reading may wait for ever.
// A relative entry is taken from `folder`.
CheckedEntry checkEntry(std::string_view entry, const std::filesystem::path& folder);

// A path made of the machine's own bytes; empty where they make none.
std::filesystem::path nativePath(std::string_view bytes);
// The bytes of a path.
std::string nativeText(const std::filesystem::path& path);

}  // namespace plimo
