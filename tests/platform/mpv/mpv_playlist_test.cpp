// Which entries of a playlist are played.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MpvPlaylist : public testing::Test {
 protected:
  Songs songs;
  TestPlayer test;
};

TEST_F(MpvPlaylist, OnlyLocalSongsAreOpenedAndTheOthersAreReported) {
  const auto good = songs.add("good.mp3");
  const auto inner = songs.addFile("inner.m3u", good + "\n");
  test.player.open(
      songs.list({"http://127.0.0.1:9/a.mp3", "https://127.0.0.1:9/b.mp3", "edl://" + good, "lua://c.lua",
                  "memory://" + silentSong(0.1).substr(0, 20), "/dev/zero", "fd://0", inner, "file://" + good, good}));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("good.mp3"));
  EXPECT_THAT(test.notes, Contains(HasSubstr("Skipped 9 songs")));
}

TEST_F(MpvPlaylist, EachSkippedEntryReportsItsReason) {
  test.player.open(songs.list({"http://127.0.0.1:9/a.mp3"}));
  EXPECT_EQ(test.note(), "Skipped a.mp3: only files of this computer are played.");
  test.player.open(songs.list({songs.list({})}));
  EXPECT_EQ(test.note(), "Skipped list.m3u: it is not a song.");
  test.player.open("https://127.0.0.1:9/a.mp3");
  EXPECT_EQ(test.note(), "Skipped a.mp3: only files of this computer are played.");
  EXPECT_FALSE(test.state().opened);
}

TEST_F(MpvPlaylist, UnusualNamesArePlayed) {
  const std::vector<std::string> names = {"two  blanks .mp3", "caf\xE9.mp3",     "\xE6\x9D\xB1.mp3", "it's \"so\".mp3",
                                          "a#b%41.mp3",       "-option.mp3",     "$(x);`y`.mp3",     "a\\b.mp3",
                                          "colon: x.mp3",     "[list],{set}.mp3"};
  std::string text = "\xEF\xBB\xBF#EXTM3U\n";
  for (const auto& name : names) text += songs.add(name, 0.15) + (text.size() % 2 == 0 ? "\r\n" : "\n");
  test.player.open(songs.addFile("list.M3U", text));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.notes, IsEmpty());
  EXPECT_EQ(test.played, names);
}

TEST_F(MpvPlaylist, RelativeAndQuotedEntriesAreResolvedAgainstThePlaylistsFolder) {
  songs.add("inner/a.mp3");
  songs.add("b.mp3");
  songs.add("c.mp3");
  test.player.open(songs.addFile("inner/list.m3u", "a.mp3\n../b.mp3\r\n\"../c.mp3\""));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("a.mp3", "b.mp3", "c.mp3"));
}

TEST_F(MpvPlaylist, AMissingOrInvalidPlaylistIsReportedAndPlaysNothing) {
  test.player.open(songs / "gone.m3u");
  EXPECT_EQ(test.note(), "Skipped gone.m3u: there is no such playlist.");
  makeFolders(songs / "folder.m3u");
  test.player.open(songs / "folder.m3u");
  EXPECT_EQ(test.note(), "Skipped folder.m3u: there is no such playlist.");
  test.player.open(songs.addFile("noise.m3u", std::string("\0\1\2\n\xFF\0\xFE\n", 8)));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.lengths, IsEmpty());
  EXPECT_NE(test.note(), "");
}

TEST_F(MpvPlaylist, EntriesOfAHugeListAreCheckedOnlyAsItIsPlayed) {
  std::vector<std::string> lines(100000, songs / "later.mp3");
  lines.front() = songs.add("first.mp3");
  test.player.open(songs.list(lines));
  EXPECT_EQ(test.state().count, 100000u);
  EXPECT_EQ(test.state().song, "first.mp3");
  songs.add("later.mp3", 3);  // too late if the entries had been checked in advance
  EXPECT_TRUE(test.untilNewStreams(2));
  EXPECT_THAT(test.played, ElementsAre("first.mp3", "later.mp3"));
  EXPECT_EQ(test.state().index, 1u);
}

TEST_F(MpvPlaylist, ThePlayableSongAfterManyBadOnesIsFound) {
  std::vector<std::string> lines(30000, "/gone.mp3");
  lines.push_back(songs.add("good.mp3"));
  test.player.open(songs.list(lines));
  EXPECT_TRUE(test.state().searching) << "the event loop runs meanwhile";
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre("good.mp3"));
  ASSERT_FALSE(test.notes.empty());
  EXPECT_THAT(test.notes.back(), HasSubstr("Skipped 30000 songs"));
}

TEST_F(MpvPlaylist, StopEndsTheSearchForAPlayableSong) {
  std::vector<std::string> lines(3000, "/gone.mp3");
  lines.push_back(songs.add("good.mp3"));
  test.player.open(songs.list(lines));
  ASSERT_TRUE(test.state().searching);
  test.player.stop();
  EXPECT_FALSE(test.state().searching);
  test.settle();
  EXPECT_THAT(test.lengths, IsEmpty());
}

}  // namespace
}  // namespace plimo
