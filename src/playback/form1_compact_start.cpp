// The compact start: plays the default playlist and shows only the player.
#include "playlists/m3u.h"
#include "settings/winamp_path.h"
#include "window/form1.h"

namespace plimo {

// Tells the user if there is none.
bool Form1::hasDefaultPlaylist(const std::string& playlist) {
  if (platform.files.fileExists(playlist)) return true;
  platform.dialogs.message(
      "I could not find any default file to play. Please make one by making a playlist and saving it as default!");
  return false;
}

void Form1::playdefaultlist() {
  const std::string playlist = ownFile(defaultPlaylistName);
  if (winamp1) {
    const std::string program = readWinampPath(platform.files, ownFile(winampPathName));
    const std::string shortProgram = platform.files.shortFilePath(program);
    if (!hasDefaultPlaylist(playlist)) return;
    platform.launcher.start(shortProgram, platform.files.shortFilePath(playlist));
  } else {
    MediaPlayer1.setVisible(true);
    platform.player.setAutoStart(true);
    platform.player.stop();
    if (!hasDefaultPlaylist(playlist)) return;
    platform.player.open(playlist);
    platform.player.setEnabled(true);
  }
  Compact_Click();
}

}  // namespace plimo
