#include "playlists/artist_songs.h"

#include <optional>

#include "base/errors.h"
#include "base/text.h"
#include "catalogue/catalogue_join.h"
#include "controls/list_box.h"
#include "playlists/row_rules.h"

namespace plimo {

namespace {

// The titles of the artists' records; nothing where the catalogue cannot be read.
class Titles {
 public:
  Titles(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> artists) {
    try {
      open_.emplace(files, catalogue);
      join_.emplace(
          *open_, artists, BrokenEnd::ignored,
          [](const CatalogueRecord& record) { return std::optional(record.artist); },
          [](std::string_view artist, std::string& key) {
            artistKey(artist, key);
            return std::string_view(key);
          },
          [this](const CatalogueRecord& record) { return open_->keep(record.title); });
    } catch (const RuntimeError&) {  // ticking ignores errors
    }
  }
  std::span<const std::string_view> of(std::size_t artist) const {
    return join_ ? join_->of(artist) : std::span<const std::string_view>();
  }

 private:
  std::optional<OpenCatalogue> open_;
  std::optional<CatalogueJoin<std::string_view>> join_;
};

}  // namespace

std::vector<std::string_view> rowTexts(const ListBox& list) {
  std::vector<std::string_view> texts(list.count());
  for (std::size_t row = 0; row < texts.size(); ++row) texts[row] = list.text(row);
  return texts;
}

void appendSongs(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> artists,
                 ListBox& songs) {
  const Titles titles(files, catalogue, artists);
  std::size_t rows = 0;
  std::size_t bytes = 0;
  for (std::size_t artist = 0; artist < artists.size(); ++artist) {
    for (const std::string_view title : titles.of(artist)) bytes += title.size();
    rows += titles.of(artist).size();
  }
  songs.makeRoom(rows, bytes);
  for (std::size_t artist = 0; artist < artists.size(); ++artist) {
    for (const std::string_view title : titles.of(artist)) {
      if (const auto name = displayName(title)) songs.add(*name);
    }
  }
}

void removeSongs(FileSystemObject& files, const std::string& catalogue, std::string_view artist, ListBox& songs) {
  const Titles titles(files, catalogue, std::span(&artist, 1));
  std::vector<std::string_view> names;
  for (const std::string_view title : titles.of(0)) names.push_back(before(title, '.'));
  songs.removeFlagged(rowsRemovedByWalks(rowTexts(songs), names));
}

}  // namespace plimo
