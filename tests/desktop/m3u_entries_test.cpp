#include "platform/mpv/m3u_entries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace plimo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(M3uEntries, ReadsLinesOfBothKinds) {
  EXPECT_THAT(m3uEntries("/a/one.mp3\r\n/a/two.mp3\n/a/three.mp3"),
              ElementsAre("/a/one.mp3", "/a/two.mp3", "/a/three.mp3"));
}

TEST(M3uEntries, LeavesOutMarksCommentsAndEmptyLines) {
  EXPECT_THAT(m3uEntries("\xEF\xBB\xBF#EXTM3U\r\n\r\n#EXTINF:7,Name\r\n  /a/one.mp3\r\n"), ElementsAre("/a/one.mp3"));
  EXPECT_THAT(m3uEntries(""), IsEmpty());
}

TEST(M3uEntries, TakesQuotesOffAndKeepsCommasAndBytes) {
  EXPECT_THAT(m3uEntries("\"/a/one, two.mp3\"\r\n/a/\xFF.mp3\r\n"), ElementsAre("/a/one, two.mp3", "/a/\xFF.mp3"));
}

TEST(M3uEntries, KnowsAPlaylistByItsName) {
  EXPECT_TRUE(isPlaylistName("list.m3u"));
  EXPECT_TRUE(isPlaylistName("/x/LIST.M3U8"));
  EXPECT_FALSE(isPlaylistName("m3u.mp3"));
}

class CheckEntry : public testing::Test {
 protected:
  CheckEntry() {
    std::filesystem::create_directories(folder_ / "sub");
    std::ofstream(folder_ / "a song.mp3") << "sound";
    std::ofstream(folder_ / "inner.m3u") << "a song.mp3\r\n";
  }
  ~CheckEntry() override { std::filesystem::remove_all(folder_); }

  Playable check(std::string_view entry) const { return checkEntry(entry, folder_).playable; }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      ("plimo-entries-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(CheckEntry, AcceptsARegularFileByItsWholePathOrFromThePlaylistsFolder) {
  const std::string whole = (folder_ / "a song.mp3").string();
  EXPECT_EQ(checkEntry(whole, "/elsewhere").path, whole);
  EXPECT_EQ(checkEntry("a song.mp3", folder_).path, whole);
}

TEST_F(CheckEntry, RefusesWhatIsNotAFileOfThisComputer) {
  for (const char* entry :
       {"http://example.org/x.mp3", "edl://x", "lua://x", "file:///etc/hostname", "av://lavfi:sine"}) {
    EXPECT_EQ(check(entry), Playable::notLocal) << entry;
  }
}

TEST_F(CheckEntry, RefusesDevicesFoldersAndFurtherPlaylists) {
  EXPECT_EQ(check("/dev/zero"), Playable::notASong);
  EXPECT_EQ(check("sub"), Playable::notASong);
  EXPECT_EQ(check("inner.m3u"), Playable::notASong);
}

TEST_F(CheckEntry, TellsAFileThatIsGone) { EXPECT_EQ(check("gone.mp3"), Playable::missing); }

}  // namespace
}  // namespace plimo
