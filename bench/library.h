// A music library that nobody owns: song names of every shape, always the same for the same numbers.
#pragma once

#include <cstddef>
#include <string>

namespace plimo::bench {

inline constexpr std::size_t songsOfArtist = 20;

// Whether an artist's songs stand together or as far apart as they can.
enum class Order { grouped, scattered };

struct Library {
  std::size_t songs = 0;
  std::size_t folders = 1;
  Order order = Order::grouped;

  // The songs of those who have twenty each; all others are the large artist's.
  std::size_t smallSongs() const { return (songs / 10 * 9 + songsOfArtist - 1) / songsOfArtist * songsOfArtist; }
  std::size_t smallArtists() const { return smallSongs() / songsOfArtist; }
  // Who has a tenth of all songs; the last one, and not one without a name.
  std::size_t largeArtist() const { return smallArtists() + (smallArtists() % 64 == 63 ? 1 : 0); }
  // Numbers count from 0.
  std::size_t artistOf(std::size_t song) const {
    if (order == Order::grouped) return song < smallSongs() ? song / songsOfArtist : largeArtist();
    return song % 10 == 9 || smallArtists() == 0 ? largeArtist() : (song - song / 10) % smallArtists();
  }
  std::size_t folderOf(std::size_t song) const { return song * folders / songs; }
};

// An artist's name: most in plain letters, some with accents. One in 64, where artist % 64 is 63, shows as no name.
std::string artistName(std::size_t artist);

// A song's file name: "artist - title.mp3" mostly, "artist - album - title.mp3", for one artist in 64 "title.mp3"; the
// extension in all its spellings, quotes here and there. One song in a hundred shows under the same name as the one
// before it.
std::string songFileName(const Library& library, std::size_t song);

// A folder's path below the library's root, with a separator in front; empty for folder 0, which is the root itself.
// Each folder holds up to four others, so that 100,000 folders are nine levels deep.
std::string folderPath(std::size_t folder);

// Makes the folders, with an empty file for each song. The root must not exist. Throws std::system_error.
void makeTree(const Library& library, const std::string& root);

// Writes the catalogue of a library, without the library: of one that is a part of a larger one at `root`, so that
// paths are equally long however few songs there are. Only the last song can be made there by anyone: it stands in the
// catalogue's own folder, as `lastSongPath` tells. Throws std::system_error.
void makeCatalogue(const Library& library, const std::string& root, const std::string& file);
std::string lastSongPath(const Library& library, const std::string& folder);

}  // namespace plimo::bench
