#include "commands.h"

#include <fstream>
#include <vector>

#include "base/text.h"
#include "library.h"

namespace plimo::bench {

namespace {

constexpr const char* savedName = "saved.m3u";

// The row of an artist in the middle of the catalogue, who has 20 songs.
std::size_t someArtist(Scene& scene) {
  std::size_t artist = scene.songs / songsOfArtist / 2;
  if (artist % 64 == 63) --artist;  // a nameless one
  return *scene.program.form().List2.find(upperAscii(artistName(artist)));
}

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

void toBeSaved(Scene& scene) {
  finalTenth(scene);
  std::ofstream(savedName, std::ios::app);  // there, so that it is overwritten
}

void savedTenth(Scene& scene) {
  toBeSaved(scene);
  save(scene);
  empty(scene);
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
    {"rename", "the file of the last song found, to rename it",
     [](Scene& s) {
       scratchFull(s);
       s.program.form().List1.userMoveCurrent(s.program.form().List1.count() - 1);
     },
     [](Scene& s) { s.program.form().rename.userClick(); }},
    {"delete", "the files of all songs found, to delete them", scratchFull,
     [](Scene& s) {
       s.program.answers().questions = {true, false};  // sure; no scan
       s.program.form().Command15.userClick();
     }},
    {"save", "a tenth of the songs saved", toBeSaved, save},
    {"open", "the same opened", savedTenth,
     [](Scene& s) {
       s.program.answers().file = s.program.files().join(s.program.form().defdir, savedName);
       s.program.form().Command3.userClick();
     }},
    {"play", "the same played: list.m3u", finalTenth, [](Scene& s) { s.program.form().Picture7.userClick(); }},
    // The floor of the others: a bare loop.
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

const Command* findCommand(const std::string& name) {
  for (const Command& command : table) {
    if (name == command.name) return &command;
  }
  return nullptr;
}

}  // namespace plimo::bench
