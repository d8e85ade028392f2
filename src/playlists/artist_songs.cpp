#include "playlists/artist_songs.h"

#include <optional>

#include "base/errors.h"
#include "base/text.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/song_name.h"
#include "controls/list_box.h"
#include "playlists/row_operations.h"

namespace plimo {

namespace {

// The songs' names of the artists' records; nothing where the catalogue cannot be read.
class Names {
 public:
  // `nameOf` gives the name that a title stands for, or nothing.
  template <class NameOf>
  Names(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> artists,
        NameOf nameOf) {
    try {
      CatalogueFile open(files, catalogue);
      join_.emplace(
          open, artists, OnTruncation::ignore,
          [nameOf](const CatalogueRecord& record) {
            return nameOf(record.title) ? std::optional(record.artist) : std::nullopt;
          },
          [](std::string_view artist, std::string& key) {
            artistKey(artist, key);
            return std::string_view(key);
          },
          [nameOf](const CatalogueRecord& record, StringArena& texts) { return texts.store(*nameOf(record.title)); });
    } catch (const RuntimeError&) {  // ticking ignores errors
    }
  }
  std::span<const std::string_view> of(std::size_t artist) const {
    return join_ ? join_->of(artist) : std::span<const std::string_view>();
  }

 private:
  std::optional<CatalogueJoin<std::string_view>> join_;
};

}  // namespace

void appendSongs(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> artists,
                 ListBox& songs) {
  const Names names(files, catalogue, artists, displayName);
  std::size_t count = 0;
  for (std::size_t artist = 0; artist < artists.size(); ++artist) count += names.of(artist).size();
  std::vector<std::string_view> rows;
  rows.reserve(count);
  for (std::size_t artist = 0; artist < artists.size(); ++artist) {
    rows.insert(rows.end(), names.of(artist).begin(), names.of(artist).end());
  }
  songs.addAll(rows);
}

void removeSongs(FileSystemObject& files, const std::string& catalogue, std::string_view artist, ListBox& songs) {
  const Names names(files, catalogue, std::span(&artist, 1),
                    [](std::string_view title) { return std::optional(prefixBefore(title, '.')); });
  songs.removeAll(removedByWalks(songs.texts(), names.of(0)));
}

}  // namespace plimo
