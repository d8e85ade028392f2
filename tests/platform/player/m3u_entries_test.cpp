// Reading playlists, and which entries are songs.
#include "platform/player/m3u_entries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(M3uEntries, AreLinesWithoutByteOrderMarkCommentsAndQuotes) {
  EXPECT_THAT(m3uEntries("\xEF\xBB\xBF#EXTM3U\r\n/a.mp3\r\n\n#EXTINF:1,x\n  /b c.mp3\n\"/d.mp3\"\r\n\r\n/e.mp3"),
              ElementsAre("/a.mp3", "/b c.mp3", "/d.mp3", "/e.mp3"));
  EXPECT_THAT(m3uEntries("\xEF\xBB\xBF/a.mp3"), ElementsAre("/a.mp3"));
  EXPECT_THAT(m3uEntries(""), IsEmpty());
  EXPECT_THAT(m3uEntries("\r\n#\n"), IsEmpty());
}

TEST(M3uEntries, KeepCharactersThatBelongToAName) {
  EXPECT_THAT(m3uEntries("/a#b.mp3\n/\xE9\xFF.mp3\n\"half.mp3\n/x \n"),
              ElementsAre("/a#b.mp3", "/\xE9\xFF.mp3", "\"half.mp3", "/x "));
}

TEST(PlaylistNames, AreRecognisedByTheirExtensionInAnyCase) {
  EXPECT_TRUE(isPlaylistName("/x/a.m3u"));
  EXPECT_TRUE(isPlaylistName("/x/a.M3U8"));
  EXPECT_FALSE(isPlaylistName("/x/a.m3u/b.mp3"));
  EXPECT_FALSE(isPlaylistName("m3u"));
}

TEST(PlaylistEntries, ThatAreUrlsAreNotPlayable) {
  for (const char* entry : {"http://host/a.mp3", "https://host/a.mp3", "HTTP://host/a.mp3", "edl:///tmp/a.mp3",
                            "lua://x", "memory://abc", "file:///tmp/a.mp3", "av://lavfi:sine", "fd://0", "fdclose://0",
                            "smb://host/a", "slice://0-10@/a.mp3", "appending:///a", "null://", "ytdl://x"}) {
    EXPECT_EQ(checkEntry(entry, "/tmp").playable, Playable::notLocal) << entry;
  }
  EXPECT_EQ(checkEntry(std::string("/tmp/a\0.mp3", 11), "/tmp").playable, Playable::notLocal);
}

TEST(PlaylistEntries, ThatAreRegularFilesArePlayableByAbsoluteOrRelativePath) {
  Songs songs;
  const std::string song = songs.add("a song.mp3");
  EXPECT_EQ(checkEntry(song, "/elsewhere").path, song);
  EXPECT_EQ(checkEntry("a song.mp3", songs / "").path, song);
  EXPECT_EQ(checkEntry("gone.mp3", songs / "").playable, Playable::missing);
}

}  // namespace
}  // namespace plimo
