// Songs that cannot be played are reported and skipped.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string randomBytes(std::size_t count) {
  std::mt19937 random(7);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() & 0xFF);
  return bytes;
}

class DirectShowBadSongs : public testing::Test {
 protected:
  // Plays the bad song and a good one after it.
  void playBoth(const std::string& bad) {
    test.player.open(songs.list({bad, songs.add("good.mp3", 0.5)}));
    EXPECT_TRUE(test.untilEnd());
    EXPECT_THAT(test.played, ElementsAre("good.mp3"));
  }

  Songs songs;
  TestPlayer test;
};

TEST_F(DirectShowBadSongs, AMissingSongIsSkipped) {
  playBoth(songs / "gone.mp3");
  EXPECT_THAT(test.notes, ElementsAre("Skipped gone.mp3: the file is gone."));
}

TEST_F(DirectShowBadSongs, AnEmptyFileIsSkipped) {
  playBoth(songs.addFile("empty.mp3", ""));
  EXPECT_THAT(test.notes, ElementsAre("Skipped empty.mp3: the file is empty."));
}

TEST_F(DirectShowBadSongs, AFolderIsSkipped) {
  songs.add("folder.mp3/inside.mp3");
  playBoth(songs / "folder.mp3");
  EXPECT_THAT(test.notes, ElementsAre("Skipped folder.mp3: it is not a song."));
}

TEST_F(DirectShowBadSongs, RandomBytesAreSkipped) {
  playBoth(songs.addFile("noise.mp3", randomBytes(20000)));
  EXPECT_THAT(test.notes, ElementsAre("Skipped noise.mp3: it cannot be played."));
}

TEST_F(DirectShowBadSongs, ATextFileWithASongsExtensionIsSkipped) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "This is a letter and no song.\n";
  playBoth(songs.addFile("letter.mp3", text));
  EXPECT_THAT(test.notes, ElementsAre("Skipped letter.mp3: it cannot be played."));
}

TEST_F(DirectShowBadSongs, ATagWithoutAudioIsSkipped) {
  std::string tag("ID3\x03\0\0\0\0\x01\0", 10);
  tag.append(128, '\0');
  playBoth(songs.addFile("tag.mp3", tag));
  EXPECT_THAT(test.notes, ElementsAre("Skipped tag.mp3: it cannot be played."));
}

TEST_F(DirectShowBadSongs, AFileInAFormatThatIsNotAudioIsSkipped) {
  playBoth(songs.addFile("archive.mp3", "PK\x03\x04" + std::string(3000, 'x')));
  EXPECT_THAT(test.notes, ElementsAre("Skipped archive.mp3: it cannot be played."));
}

TEST_F(DirectShowBadSongs, ATruncatedSongIsPlayedToItsEnd) {
  std::string song = silentSong(0.5);
  song.resize(song.size() - 50);
  test.player.open(songs.list({songs.addFile("short.mp3", song), songs.add("good.mp3", 0.5)}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("short.mp3", "good.mp3"));
}

TEST_F(DirectShowBadSongs, AddressesAreNeverOpened) {
  test.player.open(songs.list({"http://127.0.0.1:9/a.mp3", "file://" + songs.add("a.mp3"), songs.list({})}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, IsEmpty());
  EXPECT_EQ(test.note(), "None of the 3 songs can be played; the last was list.m3u: it is not a song.");
}

TEST_F(DirectShowBadSongs, AFileThatContainsAnAddressOrAListIsNotASong) {
  const std::string address = "http://127.0.0.1:9/a.mp3\n";
  test.player.open(songs.list({
      songs.addFile("address.mp3", address),
      songs.addFile("list.mp3", "#EXTM3U\n" + address),
      songs.addFile("stream.mp3", "#EXTM3U\n#EXT-X-TARGETDURATION:5\n#EXTINF:5,\n" + address + "#EXT-X-ENDLIST\n"),
      songs.addFile("pls.mp3", "[playlist]\nNumberOfEntries=1\nFile1=" + address),
      songs.addFile("asx.mp3", "<asx version=\"3.0\"><entry><ref href=\"http://127.0.0.1:9/a.mp3\"/></entry></asx>\n"),
  }));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, IsEmpty());
}

TEST_F(DirectShowBadSongs, AListOfOnlyBadSongsStopsAndIsReported) {
  test.player.open(songs.list({songs / "gone.mp3", songs.addFile("noise.mp3", randomBytes(9000)), songs / "lost.mp3"}));
  EXPECT_TRUE(test.untilEnd());
  test.settle();
  EXPECT_THAT(test.lengths, IsEmpty());
  EXPECT_EQ(test.note(), "None of the 3 songs can be played; the last was lost.mp3: the file is gone.");
}

}  // namespace
}  // namespace plimo
