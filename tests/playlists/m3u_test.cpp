#include "playlists/m3u.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/errors.h"
#include "catalogue/catalogue_reader.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {
namespace {

constexpr const char* playlist = R"(C:\Plimo\list.m3u)";
constexpr const char* catalogue = R"(C:\Plimo\plimo.kvx)";

using Names = std::vector<std::string_view>;

class Playlist : public testing::Test {
 protected:
  // Writes records of these paths and titles, and then the rest.
  void writeCatalogue(const std::vector<std::pair<std::string, std::string>>& songs, const std::string& rest = {}) {
    std::string text;
    for (const auto& [path, title] : songs) appendRecord(text, {path, "A", "B", title});
    files.addTextFile(catalogue, text + rest);
  }

  ErrorNumber failureOf(const Names& names) {
    try {
      writePlaylist(files, playlist, Force::no, catalogue, names);
    } catch (const RuntimeError& error) {
      return error.number();
    }
    ADD_FAILURE() << "nothing failed";
    return ErrorNumber::invalidCall;
  }

  FakeFileSystem files;
};

TEST_F(Playlist, ContainsThePathsInTheOrderOfTheNames) {
  writeCatalogue({{"C:\\1.mp3", "one.mp3"}, {"C:\\2.mp3", "two.mp3"}});
  writePlaylist(files, playlist, Force::no, catalogue, Names{"two", "one", "two"});
  EXPECT_EQ(files.fileContent(playlist), "C:\\2.mp3\r\nC:\\1.mp3\r\nC:\\2.mp3\r\n");
}

TEST_F(Playlist, ContainsEveryRecordOfAName) {
  writeCatalogue({{"C:\\a\\x.mp3", "x.mp3"}, {"C:\\y.mp3", "y.mp3"}, {"C:\\b\\x.mp3", "x.mp3"}});
  writePlaylist(files, playlist, Force::no, catalogue, Names{"x", "x"});
  EXPECT_EQ(files.fileContent(playlist), "C:\\a\\x.mp3\r\nC:\\b\\x.mp3\r\nC:\\a\\x.mp3\r\nC:\\b\\x.mp3\r\n");
}

TEST_F(Playlist, OmitsNamesWithoutARecord) {
  writeCatalogue({{"C:\\x.mp3", "x.mp3"}, {"C:\\ab.mp3", "a.b.mp3"}, {"C:\\n.mp3", "n"}});
  writePlaylist(files, playlist, Force::no, catalogue, Names{"X", "a.b", "n", "gone"});
  EXPECT_EQ(files.fileContent(playlist), "");
}

// Records the size of each write.
class RecordedReplacement : public FileReplacement {
 public:
  void write(std::string_view bytes) override {
    sizes.push_back(bytes.size());
    content.append(bytes);
  }
  void commit() override { committed = true; }

  std::vector<std::size_t> sizes;
  std::string content;
  bool committed = false;
};

TEST_F(Playlist, ALongOneIsWrittenInPieces) {
  constexpr std::size_t mebibyte = std::size_t{1} << 20;
  const std::string folder = "C:\\" + std::string(200, 'f') + "\\";
  std::string records;
  std::vector<std::string> titles;
  std::string expected;
  for (int song = 0; song < 13000; ++song) {
    titles.push_back("song " + std::to_string(song));
    appendRecord(records, {folder + titles.back() + ".mp3", "A", "B", titles.back() + ".mp3"});
    expected += folder + titles.back() + ".mp3\r\n";
  }
  ASSERT_GT(expected.size(), 2 * mebibyte);
  writeCatalogue({}, records);
  const Names names(titles.begin(), titles.end());
  RecordedReplacement file;
  EXPECT_EQ(writePlaylist(file, SongPaths(files, catalogue, names), names.size()), names.size());
  EXPECT_TRUE(file.content == expected);
  EXPECT_TRUE(file.committed);
  EXPECT_EQ(file.sizes.size(), 3U);
  for (const std::size_t size : file.sizes) EXPECT_LT(size, mebibyte + 300);

  writePlaylist(files, playlist, Force::no, catalogue, names);
  EXPECT_TRUE(files.fileContent(playlist) == expected);
}

TEST_F(Playlist, ReplacesTheOldPlaylist) {
  files.addTextFile(playlist, "C:\\old.mp3\r\n");
  writeCatalogue({{"C:\\x.mp3", "x.mp3"}});
  writePlaylist(files, playlist, Force::no, catalogue, Names{"x"});
  EXPECT_EQ(files.fileContent(playlist), "C:\\x.mp3\r\n");
}

TEST_F(Playlist, WithoutSongsNeedsNoCatalogue) {
  writePlaylist(files, playlist, Force::no, catalogue, Names{});
  EXPECT_EQ(files.fileContent(playlist), "");
}

TEST_F(Playlist, IsUnchangedIfThereIsNoCatalogue) {
  files.addTextFile(playlist, "C:\\old.mp3\r\n");
  EXPECT_EQ(failureOf({"x"}), ErrorNumber::fileNotFound);
  EXPECT_EQ(files.fileContent(playlist), "C:\\old.mp3\r\n");
}

TEST_F(Playlist, FailsOnATruncatedCatalogueWhateverTheNames) {
  writeCatalogue({{"C:\\x.mp3", "x.mp3"}}, "\"C:\\y.mp3\"\r\n");
  EXPECT_EQ(failureOf({"x"}), ErrorNumber::inputPastEnd);
  EXPECT_FALSE(files.fileExists(playlist));
}

TEST_F(Playlist, ThatCannotBeWrittenIsReportedBeforeTheCatalogueIsRead) {
  files.addTextFile(playlist, "old", {.readOnly = true});
  EXPECT_EQ(failureOf({"x"}), ErrorNumber::pathFileAccess);
  EXPECT_EQ(files.fileContent(playlist), "old");
}

TEST_F(Playlist, IsRecognisedByTheLastThreeLettersOfItsName) {
  EXPECT_TRUE(isPlaylistFile(R"(C:\a.m3u)"));
  EXPECT_TRUE(isPlaylistFile("LIST.M3U"));
  EXPECT_TRUE(isPlaylistFile("m3U"));
  EXPECT_FALSE(isPlaylistFile("a.m3u8"));
  EXPECT_FALSE(isPlaylistFile("3u"));
}

TEST_F(Playlist, IsReadValueByValue) {
  StringArena arena;
  const std::string content = "C:\\a.mp3\r\n  \"C:\\b \"\"x\"\".mp3\"\r\nC:\\c,d.mp3";
  EXPECT_EQ(readPlaylist(content, playlist, arena), (Names{"C:\\a.mp3", "C:\\b \"x\".mp3", "C:\\c", "d.mp3"}));
  EXPECT_TRUE(readPlaylist("", playlist, arena).empty());
}

}  // namespace
}  // namespace plimo
