// Ticking artists fills the scratch playlist.
#include <numeric>

#include "catalogue/catalogue_file.h"
#include "playlists/artist_songs.h"
#include "playlists/row_operations.h"
#include "window/form1.h"

namespace plimo {

void Form1::List2_ItemCheck(std::size_t Index) {
  if (fromsettings) return;
  const std::string artist = List2.currentText();
  const std::string_view key = artist;
  if (List2.selected(Index)) {
    addSongsOf(std::span(&key, 1));
    return;
  }
  List1.setTop(static_cast<long>(List1.count()));
  const ArtistSongs songs(platform.files, ownFile(catalogueName), std::span(&key, 1),
                          ArtistSongs::UndottedTitles::keep);
  std::vector<std::size_t> removed;
  platform.files.runInBackground([&] { removed = removedByWalks(List1.texts(), songs.of(0)); });
  List1.removeAll(removed);
}

// The same as ticking the rows one by one, but reads the catalogue once for all of them.
void Form1::tickArtists(std::span<const std::size_t> rows) {
  std::vector<std::size_t> changed;
  std::vector<std::string_view> keys;
  for (const std::size_t row : rows) {
    if (List2.selected(row)) continue;
    changed.push_back(row);
    keys.push_back(List2.text(row));
  }
  if (changed.empty()) return;
  List2.setSelectedWithoutEvents(changed, true);
  addSongsOf(keys);
}

void Form1::addSongsOf(std::span<const std::string_view> artists) {
  const ArtistSongs songs(platform.files, ownFile(catalogueName), artists, ArtistSongs::UndottedTitles::skip);
  std::vector<std::string_view> names;
  platform.files.runInBackground([&] { names = songs.all(); });
  List1.addAll(names);
  List1.setTop(static_cast<long>(List1.count()) - 1);
}

void Form1::List2_MouseDown() { popUp(pop3); }

void Form1::Command13_Click() {
  foldArtistStrip();
  std::vector<std::size_t> rows(List2.count());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  tickArtists(rows);
}

void Form1::Command14_Click() {
  foldArtistStrip();
  display();
}

void Form1::sel_Click() { Command13_Click(); }

void Form1::des_Click() { Command14_Click(); }

}  // namespace plimo
