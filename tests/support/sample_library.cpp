#include "support/sample_library.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"

namespace plimo {

namespace {

constexpr std::array<const char*, 32> firstWords = {
    "Silver",   "Broken",   "Café",   "Midnight", "Paper",   "Golden", "Velvet", "Lost",
    "Electric", "Ångström", "Wild",   "Quiet",    "Crimson", "Naïve",  "Hollow", "Sunday",
    "Distant",  "Burning",  "Little", "Señor",    "Winter",  "Frozen", "Green",  "Über",
    "Blind",    "Secret",   "Rusty",  "Morning",  "Ancient", "Slow",   "Déjà",   "Last"};

constexpr std::array<const char*, 32> secondWords = {
    "Foxes",  "Harbour", "Machine",   "Garden",  "Engines", "Rivers",   "Letters", "Satellite",
    "Mirror", "Horses",  "Avenue",    "Strings", "Thunder", "Pilots",   "Circus",  "Kitchen",
    "Planet", "Shadows", "Orchestra", "Bridge",  "Wolves",  "Summer",   "Window",  "Train",
    "Radio",  "Forest",  "Dancers",   "Island",  "Hearts",  "Carousel", "Empire",  "Lights"};

constexpr std::size_t subfolders = 4;
constexpr std::size_t firstNumber = 1000000;  // in the titles, so that all numbers have the same length
constexpr std::size_t deepFolder = 50000;
constexpr std::size_t bufferSize = std::size_t{1} << 20;

// A deterministic hash.
std::size_t mix(std::size_t number) {
  std::uint64_t value = number * 0x9E3779B97F4A7C15U;
  value ^= value >> 29;
  value *= 0xBF58476D1CE4E5B9U;
  return static_cast<std::size_t>(value ^ (value >> 32));
}

std::string words(std::size_t number) {
  return std::string(firstWords[number % firstWords.size()]) + ' ' +
         secondWords[number / firstWords.size() % secondWords.size()];
}

[[noreturn]] void fail(const std::string& path) { throw std::system_error(errno, std::generic_category(), path); }

}  // namespace

std::string artistName(std::size_t artist) {
  const std::size_t pairs = firstWords.size() * secondWords.size();
  std::string name = words(artist);
  if (artist >= pairs) name += ' ' + std::to_string(artist / pairs + 1);
  return name;
}

std::string songFileName(const SampleLibrary& library, std::size_t song) {
  constexpr std::array<const char*, 8> extensions = {".mp3", ".mp3", ".mp3", ".MP3", ".mp3", ".mp3", ".Mp3", ".mp3"};
  const std::size_t artist = library.artistOf(song);
  const bool nameless = artist % 64 == 63;
  const std::size_t titled = song % 100 == 50 && !nameless ? song - 1 : song;
  const std::size_t random = mix(titled);
  std::string title = words(random) + ' ' + std::to_string(firstNumber + titled);
  if (titled % 1000 == 777) title = '"' + title + '"';
  title += extensions[random >> 32 & 7];
  if (nameless) return title;
  std::string name = artistName(artist) + " - ";
  if (titled != song || (random >> 40 & 1) != 0) name += "The " + words(artist + song % 3) + " Album - ";
  return name + title;
}

std::string folderPath(std::size_t folder) {
  if (folder == 0) return {};
  return folderPath((folder - 1) / subfolders) + "/Folder " + std::to_string(folder);
}

std::string lastSongPath(const SampleLibrary& library, const std::string& folder) {
  return folder + '/' + songFileName(library, library.songs - 1);
}

void writeCatalogue(const SampleLibrary& library, const std::string& root, const std::string& file) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  std::string buffer;
  std::string folder;
  const std::string programFolder = std::filesystem::absolute(file).parent_path().string();
  std::size_t current = library.folders;
  for (std::size_t song = 0; song < library.songs; ++song) {
    if (library.folderOf(song) != current) {
      current = library.folderOf(song);
      folder = root + folderPath(deepFolder + current) + '/';
    }
    const std::string name = songFileName(library, song);
    const SongName parts = splitFileName(name);
    const std::string path = song + 1 < library.songs ? folder + name : lastSongPath(library, programFolder);
    appendRecord(buffer, {path, parts.artist, parts.second, parts.title});
    if (buffer.size() < bufferSize && song + 1 < library.songs) continue;
    stream.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    buffer.clear();
  }
  stream.close();
  if (!stream) fail(file);
}

}  // namespace plimo
