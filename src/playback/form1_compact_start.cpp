// The compact start: the default playlist plays, and only the player shows.
#include "app/form1.h"
#include "app/settings_file.h"
#include "playlists/m3u.h"

namespace plimo {

namespace {

// Tells the user where there is none.
bool hasDefaultPlaylist(Form1& form, const std::string& playlist) {
  if (form.platform.files.fileExists(playlist)) return true;
  form.platform.dialogs.message(
      "I could not find any default file to play. Please make one by making a playlist and saving it as default!");
  return false;
}

}  // namespace

void Form1::playdefaultlist() {
  const std::string playlist = ownFile(defaultPlaylistName);
  if (winamp1) {
    const std::string program = readWinampPath(platform.files, ownFile(winampPathName));
    const std::string shortProgram = platform.files.shortFilePath(program);
    if (!hasDefaultPlaylist(*this, playlist)) return;
    platform.launcher.start(shortProgram, platform.files.shortFilePath(playlist));
  } else {
    MediaPlayer1.setVisible(true);
    platform.player.setAutoStart(true);
    platform.player.stop();
    if (!hasDefaultPlaylist(*this, playlist)) return;
    platform.player.open(playlist);
    platform.player.setEnabled(true);
  }
  Compact_Click();
}

}  // namespace plimo
