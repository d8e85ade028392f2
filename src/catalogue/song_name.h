// Derives artist and title from a song's file name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plimo {

// The second to fourth field of a catalogue record: views of the file name or string literals.
struct SongName {
  std::string_view artist;  // trimmed
  std::string_view second;  // not trimmed
  std::string_view title;   // not trimmed, with its extension
};

// Splits the name at its first three hyphens; anything after the third one is dropped.
SongName splitFileName(std::string_view fileName);

// The name shown in the lists: the title before its first "."; nullopt if there is none.
std::optional<std::string_view> displayName(std::string_view title);

// The artist as shown in the lists: trimmed, a to z upper-cased. Replaces the content of `key`.
void artistKey(std::string_view artist, std::string& key);

// True if the name ends in mp3, MP3 or Mp3; no dot is needed.
bool isSongFile(std::string_view fileName);

}  // namespace plimo
