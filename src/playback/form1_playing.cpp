// Playing: part of the final playlist, or one song alone, in the window or through Winamp.
#include <numeric>
#include <vector>

#include "catalogue/song_lookup.h"
#include "playlists/m3u.h"
#include "settings/winamp_path.h"
#include "window/form1.h"

namespace plimo {

void Form1::openInPlayer(const std::string& path) {
  MediaPlayer1.setVisible(true);
  platform.player.setAutoStart(true);
  platform.player.stop();
  platform.player.open(path);
  platform.player.setEnabled(true);
}

void Form1::startWinampWithQueue() {
  const std::string program = readWinampPath(platform.files, ownFile(winampPathName));
  const std::string folder = platform.files.shortFolderPath(defdir);
  if (!platform.files.fileExists(program)) {
    platform.dialogs.message(
        "The Path specified for winamp is wrong. Please change the path or disable 'Play with winamp' in preferences");
    return;
  }
  platform.launcher.start(program, platform.files.join(folder, playQueueName));
}

void Form1::startWinampWithSong(const std::string& song) {
  const std::string program = readWinampPath(platform.files, ownFile(winampPathName));
  const std::string shortProgram = platform.files.shortFilePath(program);
  platform.launcher.start(shortProgram, platform.files.shortFilePath(song));
}

// Plays the songs named by the list's rows, in order.
void Form1::playQueue(const ListBox& names) {
  platform.player.setFileName("c:\\");
  platform.player.stop();
  const std::string queue = ownFile(playQueueName);
  writePlaylist(platform.files, queue, Force::own, ownFile(catalogueName), names.texts());
  if (winamp1) {
    startWinampWithQueue();
  } else {
    openInPlayer(queue);
  }
}

// Plays from the first row with the current row's text; without a current row, from the first.
void Form1::playFromCurrent(ListBox& list) {
  if (list.selectedCount() == 0) {
    platform.dialogs.message("Nothing is selected! I'll start playing from the beginning!");
  }
  const std::size_t start = list.current() ? *list.find(list.currentText()) : 0;
  std::vector<std::size_t> rows(list.count() - start);
  std::iota(rows.begin(), rows.end(), start);
  List3.assign(list, rows);
  playQueue(List3);
  list.clearSelection();
}

void Form1::playFile(const std::string& path) {
  openInPlayer(path);
  platform.player.setShowControls(true);
}

bool Form1::playOne(const std::string& name, bool byWinamp) {
  const std::optional<std::string> song = firstPath(platform.files, ownFile(catalogueName), name);
  if (!song) return false;
  if (byWinamp) {
    startWinampWithSong(*song);
  } else {
    playFile(*song);
  }
  return true;
}

// Plays the current row once the user has selected something. False if nothing was played.
bool Form1::playSelectedOne(const ListBox& list) {
  if (list.selectedCount() == 0) {
    platform.dialogs.message("Please select a file first by left-clicking it and then try playing");
    return false;
  }
  return list.current() && playOne(list.currentText(), winamp1);
}

void Form1::List1_DblClick() { play_Click(); }
void Form1::List4_DblClick() { playFromCurrent(List4); }
void Form1::List6_DblClick() { playFromCurrent(List6); }

void Form1::playall_Click() { startplaylist(); }
void Form1::startplaylist() { playcurrentlist(); }

void Form1::playcurrentlist() {
  if (&finalList() == &List6) {
    List6_DblClick();
  } else {
    List4_DblClick();
  }
}

void Form1::Picture7_Click() {
  if (&finalList() == &List4) {
    playQueue(List4);
  } else {
    list6play();
  }
}

void Form1::list6play() { playQueue(List6); }

void Form1::pal_Click() {
  if (&finalList() == &List4) {
    playselectedalone();
  } else if (playSelectedOne(List6)) {
    List6.clearSelection();
  }
}

void Form1::playselectedalone() { playSelectedOne(List4); }

void Form1::play_Click() {
  if (List1.current()) playOne(List1.currentText(), winamp1);
}

}  // namespace plimo
