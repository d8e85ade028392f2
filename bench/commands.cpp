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
#include "catalogue/catalogue_file.h"
#include "catalogue/song_name.h"

namespace plimo::bench {

namespace {

constexpr const char* savedName = "saved.m3u";

std::size_t rowOf(Fixture& fixture, std::size_t artist) {
  return *fixture.program.form().List2.find(upperAscii(artistName(artist)));
}

// An artist with 20 songs from the middle of the catalogue.
std::size_t someArtist(Fixture& fixture) {
  std::size_t artist = fixture.songLibrary().smallArtists() / 2;
  if (artist % 64 == 63) --artist;  // a nameless one
  return rowOf(fixture, artist);
}

std::size_t largeArtist(Fixture& fixture) { return rowOf(fixture, fixture.songLibrary().largeArtist()); }

// All lists are empty and no artist is ticked.
void clearAll(Fixture& fixture) {
  Form1& form = fixture.program.form();
  form.Command9.userClick();
  form.Command11.userClick();
  form.List4.setVisible(true);
  form.List6.setVisible(false);
  form.List6.clear();
  form.untickArtists();
}

void fillScratch(Fixture& fixture) {
  clearAll(fixture);
  fixture.program.form().Command13.userClick();
}

void selectHalf(Fixture& fixture) {
  fillScratch(fixture);
  ListBox& list = fixture.program.form().List1;
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < list.count(); row += 2) rows.push_back(row);
  list.userSelect(rows);
}

void fillFinal(Fixture& fixture) {
  fillScratch(fixture);
  Form1& form = fixture.program.form();
  form.Command8.userClick();
  form.Command9.userClick();
  form.List4.userMoveCurrent(form.List4.count() / 2);
}

void fillFinalTenth(Fixture& fixture) {
  fillScratch(fixture);
  Form1& form = fixture.program.form();
  std::vector<std::size_t> rows;
  for (std::size_t row = 3; rows.size() < fixture.playlistRows(); row += 10) rows.push_back(row);
  form.List1.userSelect(rows);
  form.Command1.userClick();
  form.Command9.userClick();
}

void save(Fixture& fixture) {
  fixture.program.dialogs().file = fixture.program.files().join(fixture.program.form().defdir, savedName);
  fixture.program.dialogs().answers = {false, true};  // not the default playlist; overwrite
  fixture.program.form().Command4.userClick();
}

void open(Fixture& fixture) {
  fixture.program.dialogs().file = fixture.program.files().join(fixture.program.form().defdir, savedName);
  fixture.program.form().Command3.userClick();
}

template <void (*fill)(Fixture& fixture)>
void prepareToSave(Fixture& fixture) {
  fill(fixture);
  std::ofstream(savedName, std::ios::app);  // exists, so that it is overwritten
}

template <void (*fill)(Fixture& fixture)>
void prepareToOpen(Fixture& fixture) {
  prepareToSave<fill>(fixture);
  save(fixture);
  clearAll(fixture);
}

// All songs in the scratch playlist; the catalogue's last song is selected and has a file.
void createLastSong(Fixture& fixture) {
  fillScratch(fixture);
  const SampleLibrary library = fixture.songLibrary();
  std::ofstream(lastSongPath(library, fixture.program.form().defdir)) << "a song";
  ListBox& list = fixture.program.form().List1;
  const SongName name = splitFileName(songFileName(library, library.songs - 1));
  list.userClickRow(*list.find(*displayName(name.title)), ListBox::Keys::none);
}

// The data of the baselines, set by their preparations.
std::string bytes;
std::vector<std::size_t> order;
std::vector<std::uint64_t> keys;
std::size_t baselineResult = 0;

void collectBytes(Fixture& fixture) {
  fillScratch(fixture);
  const ListBox& list = fixture.program.form().List1;
  bytes.clear();
  for (std::size_t row = 0; row < list.count(); ++row) bytes += list.text(row);
}

void randomOrder(Fixture& fixture) {
  fillScratch(fixture);
  order.resize(fixture.program.form().List1.count());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::shuffle(order.begin(), order.end(), std::mt19937(1));
}

void collectKeys(Fixture& fixture) {
  fillScratch(fixture);
  const ListBox& list = fixture.program.form().List1;
  keys.assign(list.count(), 0);
  for (std::size_t row = 0; row < list.count(); ++row) {
    for (const char byte : list.text(row).substr(0, 8)) {
      keys[row] = keys[row] << 8 | static_cast<unsigned char>(byte);
    }
  }
}

// Eight bytes at a time.
void readBytes(Fixture& fixture) {
  FileSystemObject& files = fixture.program.files();
  const auto view = files.openForReading(fixture.program.form().ownFile(catalogueName));
  const std::string_view catalogue = view->bytes();
  std::uint64_t sum = 0;
  for (std::size_t offset = 0; offset + sizeof sum <= catalogue.size(); offset += sizeof sum) {
    std::uint64_t word = 0;
    std::memcpy(&word, catalogue.data() + offset, sizeof word);
    sum ^= word;
  }
  baselineResult = static_cast<std::size_t>(sum);
}

void pickUpSong(Fixture& fixture) {
  fillFinal(fixture);
  ListBox& list = fixture.program.form().List4;
  list.userKey('q');
  list.userMoveCurrent(list.count() - 1);
}

const Command table[] = {
    {"artists", clearAll, [](Fixture& f) { f.program.form().Command14.userClick(); }},
    {"deselect", fillScratch, [](Fixture& f) { f.program.form().Command14.userClick(); }},
    {"tick", clearAll, [](Fixture& f) { f.program.form().List2.userTick(someArtist(f), true); }},
    {"untick", fillScratch, [](Fixture& f) { f.program.form().List2.userTick(someArtist(f), false); }},
    {"tick-large", clearAll, [](Fixture& f) { f.program.form().List2.userTick(largeArtist(f), true); }},
    {"untick-large", fillScratch, [](Fixture& f) { f.program.form().List2.userTick(largeArtist(f), false); }},
    {"select", clearAll, [](Fixture& f) { f.program.form().Command13.userClick(); }},
    {"add-all", fillScratch, [](Fixture& f) { f.program.form().Command8.userClick(); }},
    {"add-half", selectHalf, [](Fixture& f) { f.program.form().Command1.userClick(); }},
    {"remove-half", selectHalf, [](Fixture& f) { f.program.form().Command2.userClick(); }},
    {"clear", fillScratch, [](Fixture& f) { f.program.form().Command9.userClick(); }},
    {"shuffle", fillFinal, [](Fixture& f) { f.program.form().Shuffle.userClick(); }},
    {"sort", fillFinal, [](Fixture& f) { f.program.form().sort.userClick(); }},
    {"z", fillFinal, [](Fixture& f) { f.program.form().List4.userKey('z'); }},
    {"x", fillFinal, [](Fixture& f) { f.program.form().List4.userKey('x'); }},
    {"drop", pickUpSong, [](Fixture& f) { f.program.form().List4.userKey('w'); }},
    {"rename",
     [](Fixture& f) {
       createLastSong(f);
       f.program.dialogs().inputText = "renamed";
     },
     [](Fixture& f) { f.program.form().rename.userClick(); }},
    {"delete-one",
     [](Fixture& f) {
       createLastSong(f);
       f.program.dialogs().answers = {true, false};  // sure; no scan
     },
     [](Fixture& f) { f.program.form().Command10.userClick(); }},
    {"delete", fillScratch,
     [](Fixture& f) {
       f.program.dialogs().answers = {true, false};  // sure; no scan
       f.program.form().Command15.userClick();
     }},
    {"save", prepareToSave<fillFinalTenth>, save},
    {"save-all", prepareToSave<fillFinal>, save},
    {"open", prepareToOpen<fillFinalTenth>, open},
    {"open-all", prepareToOpen<fillFinal>, open},
    {"play", fillFinalTenth, [](Fixture& f) { f.program.form().Picture7.userClick(); }},
    // The baselines: bare loops.
    {"read", clearAll, readBytes},
    {"copy", collectBytes, [](Fixture&) { baselineResult = std::string(bytes).size(); }},
    {"visit", randomOrder,
     [](Fixture& f) {
       const ListBox& list = f.program.form().List1;
       baselineResult = 0;
       for (const std::size_t row : order) baselineResult += static_cast<unsigned char>(list.text(row).front());
     }},
    {"order", collectKeys, [](Fixture&) { std::sort(keys.begin(), keys.end()); }},
    {"append",
     [](Fixture& f) {
       fillScratch(f);
       f.program.form().List4.clear();
     },
     [](Fixture& f) {
       const ListBox& from = f.program.form().List1;
       ListBox& to = f.program.form().List4;
       for (std::size_t row = 0; row < from.count(); ++row) to.add(from.text(row));
     }},
};

}  // namespace

std::span<const Command> commands() { return table; }

std::size_t lastBaselineResult() { return baselineResult; }

const Command* findCommand(const std::string& name) {
  for (const Command& command : table) {
    if (name == command.name) return &command;
  }
  return nullptr;
}

}  // namespace plimo::bench
