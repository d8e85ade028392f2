#include "playlists/artist_songs.h"

#include "base/errors.h"
#include "base/text.h"
#include "catalogue/song_name.h"

namespace plimo {

ArtistSongs::ArtistSongs(FileSystemObject& files, const std::string& catalogue,
                         std::span<const std::string_view> artists, UndottedTitles undotted)
    : artists_(artists.size()) {
  const auto artistOf = [undotted](const CatalogueRecord& record) {
    const bool counts = undotted == UndottedTitles::keep || displayName(record.title);
    return counts ? std::optional(record.artist) : std::nullopt;
  };
  const auto keyOf = [](std::string_view artist, std::string& key) {
    artistKey(artist, key);
    return std::string_view(key);
  };
  try {
    CatalogueFile file(files, catalogue);
    join_.emplace(
        file, artists, OnTruncation::ignore, artistOf, keyOf,
        [](const CatalogueRecord& record, StringArena& texts) { return texts.store(prefixBefore(record.title, '.')); });
  } catch (const RuntimeError&) {  // ticking ignores errors
  }
}

std::vector<std::string_view> ArtistSongs::all() const {
  std::size_t count = 0;
  for (std::size_t artist = 0; artist < artists_; ++artist) count += of(artist).size();
  std::vector<std::string_view> names;
  names.reserve(count);
  for (std::size_t artist = 0; artist < artists_; ++artist) {
    names.insert(names.end(), of(artist).begin(), of(artist).end());
  }
  return names;
}

}  // namespace plimo
