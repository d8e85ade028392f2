// What is a song among the files of Windows.
#include <gtest/gtest.h>

#include "platform/player/m3u_entries.h"
#include "support/player/test_player.h"

namespace plimo {
namespace {

TEST(PlaylistEntries, ThatAreNotRegularFilesAreNotPlayable) {
  for (const char* entry : {"NUL", "CON", "C:\\Windows\\NUL", "\\\\.\\C:", "\\\\.\\PhysicalDrive0", "C:\\", "C:", ".",
                            "..", "C:\\Windows", "C:\\x\\list.m3u", "C:\\Windows\\win.ini:stream", "a?.mp3", "*"}) {
    EXPECT_NE(checkEntry(entry, "C:\\Windows").playable, Playable::yes) << entry;
  }
}

TEST(PlaylistEntries, MayBeWrittenInAnyCaseAndWithEitherSeparator) {
  Songs songs;
  const std::string song = songs.add("folder/a song.mp3");
  EXPECT_EQ(checkEntry("folder/A SONG.MP3", songs / ".").playable, Playable::yes);
  EXPECT_EQ(checkEntry("folder\\a song.mp3", songs / ".").path, song);
  EXPECT_EQ(checkEntry(song.substr(2), songs / ".").path, song) << "relative to the drive";
}

}  // namespace
}  // namespace plimo
