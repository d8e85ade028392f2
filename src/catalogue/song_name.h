// What a song's file name tells of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plimo {

// The catalogue's fields two to four. Views of the name, or fixed texts.
struct SongName {
  std::string_view artist;  // trimmed
  std::string_view second;  // as it stands
  std::string_view title;   // as it stands, with its extension
};

// The name split at its hyphens: none, one, two; what lies behind a third hyphen is dropped.
SongName splitFileName(std::string_view fileName);

// A song as the lists show it: the catalogue's fourth field before its first "."; nothing where it holds none.
std::optional<std::string_view> displayName(std::string_view title);

// An artist as the lists show it: trimmed, a to z upper-cased. Replaces what `key` held.
void artistKey(std::string_view artist, std::string& key);

// True when the name's last three letters are exactly Mp3, mp3 or MP3.
bool isSongFile(std::string_view fileName);

}  // namespace plimo
