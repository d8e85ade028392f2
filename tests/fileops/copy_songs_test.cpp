#include "fileops/copy_songs.h"

#include "fileops/library.h"

namespace plimo {
namespace {

class CopySongs : public Library {
 protected:
  CopySongs() { files.addFolder("D:\\"); }

  void copy(const Names& names, const std::string& folder = "D:\\", bool firstRowSelected = true) {
    copySongs(files, progress, catalogueFile, {names, firstRowSelected}, folder,
              [this](std::string_view name) { present.emplace_back(name); });
  }

  std::vector<std::string> present;
};

TEST_F(CopySongs, CopiesIntoARootWithoutDoublingTheSeparator) {
  files.addDrive('D', DriveType::removable);
  addSong(R"(C:\m\x.mp3)");
  copy({"x"});
  EXPECT_EQ(files.fileContent(R"(D:\x.mp3)"), R"(C:\m\x.mp3)");
  EXPECT_TRUE(files.fileExists(R"(C:\m\x.mp3)"));
}

TEST_F(CopySongs, CopiesIntoAFolder) {
  files.addFolder(R"(C:\out\deep)");
  addSong(R"(C:\m\x.mp3)");
  addSong(R"(C:\m\A - y.mp3)");
  copy({" y", "x"}, R"(C:\out\deep)");
  EXPECT_EQ(files.fileContent(R"(C:\out\deep\x.mp3)"), R"(C:\m\x.mp3)");
  EXPECT_EQ(files.fileContent(R"(C:\out\deep\A - y.mp3)"), R"(C:\m\A - y.mp3)");
  EXPECT_EQ(progress.updates, (std::vector<std::string>{"1/2 A - y.mp3", "1/2 A - y.mp3", "2/2 x.mp3", "2/2 x.mp3"}));
  EXPECT_EQ(progress.ends, 1);
}

TEST_F(CopySongs, NeverOverwrites) {
  files.addDrive('D', DriveType::fixed);
  addSong(R"(C:\a\x.mp3)");
  addSong(R"(C:\b\x.mp3)");
  copy({"x"});
  EXPECT_EQ(files.fileContent(R"(D:\x.mp3)"), R"(C:\a\x.mp3)");
  EXPECT_EQ(present, (std::vector<std::string>{"x.mp3"}));
}

TEST_F(CopySongs, FailsIfTheFirstSongIsMissing) {
  files.addDrive('D', DriveType::fixed);
  addRecord(R"(C:\gone.mp3)");
  addSong(R"(C:\x.mp3)");
  EXPECT_EQ(failureOf([&] { copy({"gone", "x"}); }), ErrorNumber::fileNotFound);
  EXPECT_FALSE(files.fileExists(R"(D:\x.mp3)"));
  EXPECT_EQ(progress.ends, 1);
}

TEST_F(CopySongs, SkipsALaterSongThatIsMissing) {
  files.addDrive('D', DriveType::fixed);
  addSong(R"(C:\x.mp3)");
  addRecord(R"(C:\gone.mp3)");
  addSong(R"(C:\y.mp3)");
  files.addTextFile(R"(D:\gone.mp3)", "there");
  copy({"x", "gone", "y"});
  EXPECT_TRUE(files.fileExists(R"(D:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(D:\y.mp3)"));
  EXPECT_TRUE(present.empty());
}

TEST_F(CopySongs, IgnoresACopyThatFails) {
  files.addDrive('D', DriveType::fixed);
  addSong(R"(C:\x.mp3)");
  addSong(R"(C:\y.mp3)");
  files.addFile(R"(C:\x.mp3)", 1, {.locked = true});
  copy({"x", "y"});
  EXPECT_FALSE(files.fileExists(R"(D:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(D:\y.mp3)"));
}

TEST_F(CopySongs, NeedsTheCatalogueEvenForNoNames) {
  EXPECT_EQ(failureOf([&] { copy({}, "D:\\", false); }), ErrorNumber::fileNotFound);
}

TEST_F(CopySongs, ReportsATruncatedRecordBeforeAnythingIsCopied) {
  files.addDrive('D', DriveType::fixed);
  addSong(R"(C:\x.mp3)");
  appendTruncatedRecord();
  EXPECT_EQ(failureOf([&] { copy({"x"}, "D:\\", false); }), ErrorNumber::inputPastEnd);
  EXPECT_FALSE(files.fileExists(R"(D:\x.mp3)"));
  EXPECT_EQ(failureOf([&] { copy({}, "D:\\", false); }), ErrorNumber::inputPastEnd);
}

TEST_F(CopySongs, IgnoresATruncatedRecordOnceTheFirstRowIsCopied) {
  files.addDrive('D', DriveType::fixed);
  addSong(R"(C:\x.mp3)");
  addSong(R"(C:\y.mp3)");
  appendTruncatedRecord();
  copy({"x", "y"});
  EXPECT_TRUE(files.fileExists(R"(D:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(D:\y.mp3)"));
}

}  // namespace
}  // namespace plimo
