// The songs of ticked artists.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue_join.h"
#include "platform/file_system_object.h"

namespace plimo {

class ArtistSongs {
 public:
  // What a title without a "." stands for: no song, or a song of that name.
  enum class UndottedTitles { skip, keep };

  // Reads the catalogue once for all artists, which are given as the lists show them. Errors are ignored: a failure, or
  // a truncated record, ends the reading, and what was read counts.
  ArtistSongs(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> artists,
              UndottedTitles undotted);

  // The names of the artist's songs, each the title before its first ".", in the order of the catalogue; valid as long
  // as this object.
  std::span<const std::string_view> of(std::size_t artist) const {
    return join_ ? join_->of(artist) : std::span<const std::string_view>();
  }
  // Those of all artists, artist by artist in the order given.
  std::vector<std::string_view> all() const;

 private:
  std::size_t artists_;
  std::optional<CatalogueJoin<std::string_view>> join_;
};

}  // namespace plimo
