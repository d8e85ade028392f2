// Playing: a run of the final playlist, or one song alone, by the player on the window or by Winamp.
#include <numeric>
#include <vector>

#include "app/form1.h"
#include "app/settings_file.h"
#include "catalogue/song_lookup.h"
#include "playback/play_queue.h"
#include "playlists/m3u.h"

namespace plimo {

namespace {

void openInPlayer(Form1& form, const std::string& path) {
  form.MediaPlayer1.setVisible(true);
  form.platform.player.setAutoStart(true);
  form.platform.player.stop();
  form.platform.player.open(path);
  form.platform.player.setEnabled(true);
}

void startWinampWithRun(Form1& form) {
  const std::string program = readWinampPath(form.platform.files, form.ownFile(winampPathName));
  const std::string folder = form.platform.files.shortFolderPath(form.defdir);
  if (!form.platform.files.fileExists(program)) {
    form.platform.dialogs.message(
        "The Path specified for winamp is wrong. Please change the path or disable 'Play with winamp' in preferences");
    return;
  }
  form.platform.launcher.start(program, form.platform.files.join(folder, playQueueName));
}

void startWinampWithSong(Form1& form, const std::string& song) {
  const std::string program = readWinampPath(form.platform.files, form.ownFile(winampPathName));
  const std::string shortProgram = form.platform.files.shortFilePath(program);
  form.platform.launcher.start(shortProgram, form.platform.files.shortFilePath(song));
}

// Plays the songs named by the list's rows, in order.
void playQueue(Form1& form, const ListBox& names) {
  form.platform.player.setFileName("c:\\");
  form.platform.player.stop();
  const std::string playlist = form.ownFile(playQueueName);
  writePlayQueue(form.platform.files, playlist, form.ownFile(catalogueName), names.texts());
  if (form.winamp1) {
    startWinampWithRun(form);
  } else {
    openInPlayer(form, playlist);
  }
}

// Plays from the first row named like the current one; without a current row, from the first.
void playFromCurrent(Form1& form, ListBox& list) {
  if (list.selectedCount() == 0) {
    form.platform.dialogs.message("Nothing is selected! I'll start playing from the beginning!");
  }
  const std::size_t start = list.current() ? *list.find(list.currentText()) : 0;
  std::vector<std::size_t> rows(list.count() - start);
  std::iota(rows.begin(), rows.end(), start);
  form.List3.assign(list, rows);
  playQueue(form, form.List3);
  list.clearSelection();
}

// False where the catalogue has no such song.
bool playOne(Form1& form, const std::string& name, bool byWinamp) {
  const std::optional<std::string> song = firstPath(form.platform.files, form.ownFile(catalogueName), name);
  if (!song) return false;
  if (byWinamp) {
    startWinampWithSong(form, *song);
  } else {
    openInPlayer(form, *song);
    form.platform.player.setShowControls(true);
  }
  return true;
}

// The current row, once the user has selected something. False where nothing was played.
bool playSelectedOne(Form1& form, const ListBox& list) {
  if (list.selectedCount() == 0) {
    form.platform.dialogs.message("Please select a file first by left-clicking it and then try playing");
    return false;
  }
  return list.current() && playOne(form, list.currentText(), form.winamp1);
}

}  // namespace

void Form1::List1_DblClick() { play_Click(); }
void Form1::List4_DblClick() { playFromCurrent(*this, List4); }
void Form1::List6_DblClick() { playFromCurrent(*this, List6); }

void Form1::playall_Click() { startplaylist(); }
void Form1::startplaylist() { playcurrentlist(); }

void Form1::playcurrentlist() {
  if (List6.visible()) {
    List6_DblClick();
  } else {
    List4_DblClick();
  }
}

void Form1::Picture7_Click() {
  if (List4.visible()) {
    playQueue(*this, List4);
  } else {
    list6play();
  }
}

void Form1::list6play() { playQueue(*this, List6); }

void Form1::pal_Click() {
  if (List4.visible()) {
    playselectedalone();
  } else if (playSelectedOne(*this, List6)) {
    List6.clearSelection();
  }
}

void Form1::playselectedalone() { playSelectedOne(*this, List4); }

void Form1::play_Click() {
  if (List1.current()) playSongAlone(List1.currentText(), false);
}

void Form1::playSongAlone(const std::string& name, bool byPlayer) { playOne(*this, name, winamp1 && !byPlayer); }

}  // namespace plimo
