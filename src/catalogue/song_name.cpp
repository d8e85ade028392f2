#include "catalogue/song_name.h"

#include "base/text.h"

namespace plimo {

SongName splitFileName(std::string_view fileName) {
  const std::size_t first = fileName.find('-');
  if (first == std::string_view::npos) return {"Miscellaneous", "Don't Know!", fileName};
  const std::string_view artist = trimBlanks(fileName.substr(0, first));
  const std::string_view rest = fileName.substr(first + 1);
  const std::size_t second = rest.find('-');
  if (second == std::string_view::npos) return {artist, "Don't know!", rest};
  return {artist, rest.substr(0, second), prefixBefore(rest.substr(second + 1), '-')};
}

std::optional<std::string_view> displayName(std::string_view title) {
  const std::size_t dot = title.find('.');
  if (dot == std::string_view::npos) return std::nullopt;
  return title.substr(0, dot);
}

void artistKey(std::string_view artist, std::string& key) {
  key.clear();
  appendUpperAscii(key, trimBlanks(artist));
}

bool isSongFile(std::string_view fileName) {
  return fileName.ends_with("mp3") || fileName.ends_with("MP3") || fileName.ends_with("Mp3");
}

}  // namespace plimo
