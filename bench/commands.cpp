#include "commands.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "base/text.h"
#include "catalogue/song_name.h"

namespace plimo::bench {

namespace {

constexpr const char* savedName = "saved.m3u";

std::size_t rowOf(Scene& scene, std::size_t artist) {
  return *scene.program.form().List2.find(upperAscii(artistName(artist)));
}

// The row of an artist in the middle of the catalogue, who has 20 songs.
std::size_t someArtist(Scene& scene) {
  std::size_t artist = scene.songLibrary().smallArtists() / 2;
  if (artist % 64 == 63) --artist;  // a nameless one
  return rowOf(scene, artist);
}

std::size_t largeArtist(Scene& scene) { return rowOf(scene, scene.songLibrary().largeArtist()); }

// No list holds a row, no artist is ticked.
void empty(Scene& scene) {
  Form1& form = scene.program.form();
  form.Command9.userClick();
  form.Command11.userClick();
  form.List4.setVisible(true);
  form.List6.setVisible(false);
  form.List6.clear();
  form.untickArtists();
}

void scratchFull(Scene& scene) {
  empty(scene);
  scene.program.form().Command13.userClick();
}

void halfSelected(Scene& scene) {
  scratchFull(scene);
  ListBox& list = scene.program.form().List1;
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < list.count(); row += 2) rows.push_back(row);
  list.userSelect(rows);
}

void finalFull(Scene& scene) {
  scratchFull(scene);
  Form1& form = scene.program.form();
  form.Command8.userClick();
  form.Command9.userClick();
  form.List4.userMoveCurrent(form.List4.count() / 2);
}

void finalTenth(Scene& scene) {
  scratchFull(scene);
  Form1& form = scene.program.form();
  std::vector<std::size_t> rows;
  for (std::size_t row = 3; rows.size() < scene.playlistRows(); row += 10) rows.push_back(row);
  form.List1.userSelect(rows);
  form.Command1.userClick();
  form.Command9.userClick();
}

void save(Scene& scene) {
  scene.program.answers().file = scene.program.files().join(scene.program.form().defdir, savedName);
  scene.program.answers().questions = {false, true};  // not the default playlist; overwrite
  scene.program.form().Command4.userClick();
}

void open(Scene& scene) {
  scene.program.answers().file = scene.program.files().join(scene.program.form().defdir, savedName);
  scene.program.form().Command3.userClick();
}

template <void (*fill)(Scene& scene)>
void toBeSaved(Scene& scene) {
  fill(scene);
  std::ofstream(savedName, std::ios::app);  // there, so that it is overwritten
}

template <void (*fill)(Scene& scene)>
void saved(Scene& scene) {
  toBeSaved<fill>(scene);
  save(scene);
  empty(scene);
}

// All songs in the scratch playlist; the last one of the catalogue has a file, and is the one pointed at.
void lastSongThere(Scene& scene) {
  scratchFull(scene);
  const Library library = scene.songLibrary();
  std::ofstream(lastSongPath(library, scene.program.form().defdir)) << "a song";
  ListBox& list = scene.program.form().List1;
  const SongName name = splitFileName(songFileName(library, library.songs - 1));
  list.userClickRow(*list.find(*displayName(name.title)), ListBox::Keys::none);
}

// What the floors work on, made anew by each preparation.
std::string bytes;
std::vector<std::size_t> order;
std::vector<std::uint64_t> numbers;
std::size_t told = 0;

void allBytes(Scene& scene) {
  scratchFull(scene);
  const ListBox& list = scene.program.form().List1;
  bytes.clear();
  for (std::size_t row = 0; row < list.count(); ++row) bytes += list.text(row);
}

void anyOrder(Scene& scene) {
  scratchFull(scene);
  order.resize(scene.program.form().List1.count());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::shuffle(order.begin(), order.end(), std::mt19937(1));
}

void firstBytes(Scene& scene) {
  scratchFull(scene);
  const ListBox& list = scene.program.form().List1;
  numbers.assign(list.count(), 0);
  for (std::size_t row = 0; row < list.count(); ++row) {
    for (const char byte : list.text(row).substr(0, 8)) {
      numbers[row] = numbers[row] << 8 | static_cast<unsigned char>(byte);
    }
  }
}

// Eight at a time, as the least that reading can be.
void readBytes(Scene& scene) {
  FileSystemObject& files = scene.program.files();
  const auto view = files.openForReading(scene.program.form().ownFile(catalogueName));
  const std::string_view bytesThere = view->bytes();
  std::uint64_t sum = 0;
  for (std::size_t at = 0; at + sizeof sum <= bytesThere.size(); at += sizeof sum) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytesThere.data() + at, sizeof eight);
    sum ^= eight;
  }
  told = static_cast<std::size_t>(sum);
}

void pickedUp(Scene& scene) {
  finalFull(scene);
  ListBox& list = scene.program.form().List4;
  list.userKey('q');
  list.userMoveCurrent(list.count() - 1);
}

const Command table[] = {
    {"artists", "the artist list read from the catalogue", empty,
     [](Scene& s) { s.program.form().Command14.userClick(); }},
    {"deselect", "all artists unticked, all songs listed before", scratchFull,
     [](Scene& s) { s.program.form().Command14.userClick(); }},
    {"tick", "an artist of 20 songs ticked", empty,
     [](Scene& s) { s.program.form().List2.userTick(someArtist(s), true); }},
    {"untick", "the same unticked, all songs listed before", scratchFull,
     [](Scene& s) { s.program.form().List2.userTick(someArtist(s), false); }},
    {"tick-large", "an artist of a tenth of the songs ticked", empty,
     [](Scene& s) { s.program.form().List2.userTick(largeArtist(s), true); }},
    {"untick-large", "the same unticked, all songs listed before", scratchFull,
     [](Scene& s) { s.program.form().List2.userTick(largeArtist(s), false); }},
    {"select", "all artists ticked", empty, [](Scene& s) { s.program.form().Command13.userClick(); }},
    {"add-all", "all songs to the final playlist", scratchFull,
     [](Scene& s) { s.program.form().Command8.userClick(); }},
    {"add-half", "every second song to the final playlist", halfSelected,
     [](Scene& s) { s.program.form().Command1.userClick(); }},
    {"remove-half", "every second song off the list", halfSelected,
     [](Scene& s) { s.program.form().Command2.userClick(); }},
    {"clear", "the scratch playlist emptied", scratchFull, [](Scene& s) { s.program.form().Command9.userClick(); }},
    {"shuffle", "the final playlist shuffled", finalFull, [](Scene& s) { s.program.form().Shuffle.userClick(); }},
    {"sort", "the final playlist sorted", finalFull, [](Scene& s) { s.program.form().sort.userClick(); }},
    {"z", "a song selected by key", finalFull, [](Scene& s) { s.program.form().List4.userKey('z'); }},
    {"x", "a song removed by key", finalFull, [](Scene& s) { s.program.form().List4.userKey('x'); }},
    {"drop", "a song dropped elsewhere by key", pickedUp, [](Scene& s) { s.program.form().List4.userKey('w'); }},
    {"rename", "the file of the catalogue's last song renamed",
     [](Scene& s) {
       lastSongThere(s);
       s.program.answers().text = "renamed";
     },
     [](Scene& s) { s.program.form().rename.userClick(); }},
    {"delete-one", "the same file deleted",
     [](Scene& s) {
       lastSongThere(s);
       s.program.answers().questions = {true, false};  // sure; no scan
     },
     [](Scene& s) { s.program.form().Command10.userClick(); }},
    {"delete", "the files of all songs found, to delete them", scratchFull,
     [](Scene& s) {
       s.program.answers().questions = {true, false};  // sure; no scan
       s.program.form().Command15.userClick();
     }},
    {"save", "a tenth of the songs saved", toBeSaved<finalTenth>, save},
    {"save-all", "all songs saved", toBeSaved<finalFull>, save},
    {"open", "a tenth of the songs opened", saved<finalTenth>, open},
    {"open-all", "all songs opened", saved<finalFull>, open},
    {"play", "a tenth of the songs played: list.m3u", finalTenth,
     [](Scene& s) { s.program.form().Picture7.userClick(); }},
    // The floors of the others: bare loops.
    {"read", "(floor) the catalogue's bytes read", empty, readBytes},
    {"copy", "(floor) the bytes of all songs' names copied at once", allBytes,
     [](Scene&) { told = std::string(bytes).size(); }},
    {"visit", "(floor) all rows visited in any order", anyOrder,
     [](Scene& s) {
       const ListBox& list = s.program.form().List1;
       told = 0;
       for (const std::size_t row : order) told += static_cast<unsigned char>(list.text(row).front());
     }},
    {"order", "(floor) the first eight bytes of all songs' names put in order as numbers", firstBytes,
     [](Scene&) { std::sort(numbers.begin(), numbers.end()); }},
    {"append", "(floor) all songs appended one by one to an empty list",
     [](Scene& s) {
       scratchFull(s);
       s.program.form().List4.clear();
     },
     [](Scene& s) {
       const ListBox& from = s.program.form().List1;
       ListBox& to = s.program.form().List4;
       for (std::size_t row = 0; row < from.count(); ++row) to.add(from.text(row));
     }},
};

}  // namespace

std::span<const Command> commands() { return table; }

std::size_t lastTold() { return told; }

const Command* findCommand(const std::string& name) {
  for (const Command& command : table) {
    if (name == command.name) return &command;
  }
  return nullptr;
}

}  // namespace plimo::bench
