#include "catalogue/song_name.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

void expectSplit(std::string_view file, std::string_view artist, std::string_view second, std::string_view title) {
  const SongName name = splitFileName(file);
  EXPECT_EQ(name.artist, artist) << file;
  EXPECT_EQ(name.second, second) << file;
  EXPECT_EQ(name.title, title) << file;
}

TEST(SongName, SplitsAtHyphens) {
  expectSplit("Intro.mp3", "Miscellaneous", "Don't Know!", "Intro.mp3");
  expectSplit("Abba - Dancing Queen.mp3", "Abba", "Don't know!", " Dancing Queen.mp3");
  expectSplit("A - B - C.mp3", "A", " B ", " C.mp3");
  expectSplit("A - B - C - D.mp3", "A", " B ", " C ");
  expectSplit("A-B-C-D-E.mp3", "A", "B", "C");
  expectSplit("-x.mp3", "", "Don't know!", "x.mp3");
  expectSplit("a--b.mp3", "a", "", "b.mp3");
  expectSplit("", "Miscellaneous", "Don't Know!", "");
}

TEST(SongName, DisplayNameEndsAtTheFirstDot) {
  EXPECT_EQ(displayName(" Dancing Queen.mp3"), " Dancing Queen");
  EXPECT_EQ(displayName("a.b.mp3"), "a");
  EXPECT_EQ(displayName(".mp3"), "");
  EXPECT_EQ(displayName(" C "), std::nullopt);
}

TEST(SongName, ArtistKeyIsTrimmedAndUpperCase) {
  std::string key = "before";
  artistKey("  Mötley crüe ", key);
  EXPECT_EQ(key, "MöTLEY CRüE");
}

TEST(SongName, AcceptsThreeSpellingsOfTheExtension) {
  for (const char* name : {"a.mp3", "a.MP3", "a.Mp3", "a.xmp3", "mp3"}) EXPECT_TRUE(isSongFile(name)) << name;
  for (const char* name : {"a.mP3", "a.mp", "p3", "", "a.mp3 ", "a.mp4"}) EXPECT_FALSE(isSongFile(name)) << name;
}

}  // namespace
}  // namespace plimo
