// Songs that cannot be played are reported and skipped, whichever engine plays.
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

class BadSongs : public testing::Test {
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

TEST_F(BadSongs, AMissingSongIsSkipped) {
  playBoth(songs / "gone.mp3");
  EXPECT_THAT(test.notes, ElementsAre("Skipped gone.mp3: the file is gone."));
}

TEST_F(BadSongs, AnEmptyFileIsSkipped) {
  playBoth(songs.addFile("empty.mp3", ""));
  EXPECT_THAT(test.notes, ElementsAre("Skipped empty.mp3: the file is empty."));
}

TEST_F(BadSongs, AFolderIsSkipped) {
  songs.add("folder.mp3/inside.mp3");
  playBoth(songs / "folder.mp3");
  EXPECT_THAT(test.notes, ElementsAre("Skipped folder.mp3: it is not a song."));
}

TEST_F(BadSongs, RandomBytesAreSkipped) {
  playBoth(songs.addFile("noise.mp3", randomBytes(20000)));
  EXPECT_THAT(test.notes, ElementsAre("Skipped noise.mp3: it cannot be played."));
}

TEST_F(BadSongs, ATextFileWithASongsExtensionIsSkipped) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "This is a letter and no song.\n";
  playBoth(songs.addFile("letter.mp3", text));
  EXPECT_THAT(test.notes, ElementsAre("Skipped letter.mp3: it cannot be played."));
}

TEST_F(BadSongs, ATagWithoutAudioIsSkipped) {
  std::string tag("ID3\x03\0\0\0\0\x01\0", 10);
  tag.append(128, '\0');
  playBoth(songs.addFile("tag.mp3", tag));
  EXPECT_THAT(test.notes, ElementsAre("Skipped tag.mp3: it cannot be played."));
}

TEST_F(BadSongs, ATagFollowedByRandomBytesIsSkipped) {
  std::string tag("ID3\x03\0\0\0\0\x01\0", 10);
  tag.append(128, '\0');
  test.player.open(songs.list({songs.addFile("tag.mp3", tag + randomBytes(3000)), songs.add("good.mp3", 0.5)}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, testing::Contains("good.mp3"));
  EXPECT_THAT(test.notes, ElementsAre("Skipped tag.mp3: it cannot be played."));
}

TEST_F(BadSongs, AFileInAFormatThatIsNotAudioIsSkipped) {
  playBoth(songs.addFile("archive.mp3", "PK\x03\x04" + std::string(3000, 'x')));
  EXPECT_THAT(test.notes, ElementsAre("Skipped archive.mp3: it cannot be played."));
}

TEST_F(BadSongs, ATruncatedSongIsPlayedToItsEnd) {
  std::string song = silentSong(0.5);
  song.resize(song.size() - 50);
  test.player.open(songs.list({songs.addFile("short.mp3", song), songs.add("good.mp3", 0.5)}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("short.mp3", "good.mp3"));
}

TEST_F(BadSongs, PlaybackContinuesAfterADamagedPartOfASong) {
  const std::string good = silentSong(0.4);
  test.player.open(
      songs.list({songs.addFile("hole.mp3", good + randomBytes(1000) + good), songs.add("good.mp3", 0.5)}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("hole.mp3", "good.mp3"));
}

TEST_F(BadSongs, AddressesAreNeverOpened) {
  test.player.open(songs.list({"http://127.0.0.1:9/a.mp3", "file://" + songs.add("a.mp3"), songs.list({})}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, IsEmpty());
  EXPECT_EQ(test.note(), "None of the 3 songs can be played; the last was list.m3u: it is not a song.");
}

TEST_F(BadSongs, AFileThatContainsAnAddressOrAListIsNotASong) {
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

TEST_F(BadSongs, AListOfOnlyBadSongsStopsAndIsReported) {
  test.player.open(songs.list({songs / "gone.mp3", songs.addFile("noise.mp3", randomBytes(9000)), songs / "lost.mp3"}));
  EXPECT_TRUE(test.untilEnd());
  test.settle();
  EXPECT_THAT(test.lengths, IsEmpty());
  EXPECT_EQ(test.state().song, "");
  EXPECT_TRUE(test.state().paused);
  EXPECT_EQ(test.note(), "None of the 3 songs can be played; the last was lost.mp3: the file is gone.");
}

TEST_F(BadSongs, ASingleSongThatCannotBePlayedIsReported) {
  test.player.open(songs.addFile("noise.mp3", randomBytes(9000)));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_EQ(test.note(), "Skipped noise.mp3: it cannot be played.");
  test.player.open(songs / "gone.mp3");
  EXPECT_EQ(test.note(), "Skipped gone.mp3: the file is gone.");
  EXPECT_FALSE(test.state().opened);
}

TEST_F(BadSongs, SeveralBadSongsInARowAreCounted) {
  test.player.open(songs.list({songs.add("first.mp3"), songs / "x.mp3", songs / "y.mp3", songs.add("last.mp3", 0.5)}));
  EXPECT_TRUE(test.until([&] { return test.state().song == "last.mp3"; }));
  EXPECT_EQ(test.note(), "Skipped 2 songs; the last was y.mp3: the file is gone.");
  EXPECT_TRUE(test.untilEnd());
  EXPECT_EQ(test.note(), "");
}

TEST_F(BadSongs, NextAndPreviousSkipBadSongs) {
  const auto first = songs.add("first.mp3", 3);
  const auto noise = songs.addFile("noise.mp3", randomBytes(9000));
  test.player.open(songs.list({first, songs / "gone.mp3", noise, songs.add("last.mp3", 3), songs / "lost.mp3"}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.next();
  ASSERT_TRUE(test.untilNewStreams(2));
  test.player.previous();
  ASSERT_TRUE(test.untilNewStreams(3));
  EXPECT_THAT(test.played, ElementsAre("first.mp3", "last.mp3", "first.mp3"));
}

TEST_F(BadSongs, PreviousWithOnlyBadSongsBeforeFindsTheNextGoodOne) {
  test.player.open(songs.list({songs / "gone.mp3", songs / "lost.mp3", songs.add("last.mp3", 3)}));
  ASSERT_TRUE(test.untilNewStreams(1));
  test.player.previous();
  ASSERT_TRUE(test.untilNewStreams(2));
  EXPECT_THAT(test.played, ElementsAre("last.mp3", "last.mp3"));
}

TEST_F(BadSongs, NextWithOnlyBadSongsAfterStopsPlayback) {
  test.player.open(songs.list({songs.add("a.mp3", 3), songs / "gone.mp3"}));
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));
  test.player.next();
  ASSERT_TRUE(test.untilEnd());
  const double position = test.player.currentPosition();
  test.settle();
  EXPECT_EQ(test.player.currentPosition(), position) << "still playing";
  EXPECT_EQ(test.note(), "Skipped gone.mp3: the file is gone.");
}

}  // namespace
}  // namespace plimo
