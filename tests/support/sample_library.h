// A generated music library with song names of every form; deterministic.
#pragma once

#include <cstddef>
#include <string>

namespace plimo {

inline constexpr std::size_t songsPerArtist = 20;

// Whether an artist's songs are adjacent or as far apart as possible.
enum class ArtistOrder { grouped, scattered };

struct SampleLibrary {
  std::size_t songs = 0;
  std::size_t folders = 1;
  ArtistOrder order = ArtistOrder::grouped;

  // The number of songs of the small artists, with twenty each. All others are the large artist's.
  std::size_t smallSongs() const { return (songs / 10 * 9 + songsPerArtist - 1) / songsPerArtist * songsPerArtist; }
  std::size_t smallArtists() const { return smallSongs() / songsPerArtist; }
  // The index of the artist with a tenth of all songs: the last one, but not one without a name.
  std::size_t largeArtist() const { return smallArtists() + (smallArtists() % 64 == 63 ? 1 : 0); }
  std::size_t artistOf(std::size_t song) const {
    if (order == ArtistOrder::grouped) return song < smallSongs() ? song / songsPerArtist : largeArtist();
    return song % 10 == 9 || smallArtists() == 0 ? largeArtist() : (song - song / 10) % smallArtists();
  }
  std::size_t folderOf(std::size_t song) const { return song * folders / songs; }
};

// An artist's name, mostly ASCII, some with accents. The songs of one artist in 64 (artist % 64 == 63) do not contain
// it.
std::string artistName(std::size_t artist);

// A song's file name: "artist - title.mp3", "artist - album - title.mp3" or, for one artist in 64, "title.mp3", with
// all spellings of the extension and some quotes. One song in a hundred has the same display name as the one before it.
std::string songFileName(const SampleLibrary& library, std::size_t song);

// A folder's path relative to the library's root, with a leading separator; empty for folder 0, the root itself. Each
// folder has up to four subfolders, so that 100,000 folders are nine levels deep.
std::string folderPath(std::size_t folder);

// Creates the folders and an empty file per song. The root must not exist. Throws std::system_error.
void createTree(const SampleLibrary& library, const std::string& root);

// Writes the catalogue of a library without creating its files. The paths are those of a part of a larger library at
// `root`, so that their length does not depend on the number of songs. Only the last song's path, lastSongPath, is in
// the catalogue's own folder, where a caller can create it. Throws std::system_error.
void writeCatalogue(const SampleLibrary& library, const std::string& root, const std::string& file);
std::string lastSongPath(const SampleLibrary& library, const std::string& folder);

}  // namespace plimo
