#include "fileops/delete_songs.h"

#include "fileops/library.h"

namespace plimo {
namespace {

class DeleteSongs : public Library {
 protected:
  std::optional<ErrorNumber> failureOfDeleting(const Names& names) {
    return failureOf([&] { deleteSongs(files, progress, catalogueFile, names); });
  }
};

TEST_F(DeleteSongs, DeletesEveryFileOfAName) {
  addSong(R"(C:\a\x.mp3)");
  addSong(R"(C:\y.mp3)");
  addSong(R"(C:\b\x.mp3)");
  deleteSongs(files, progress, catalogueFile, Names{"x"});
  EXPECT_FALSE(files.fileExists(R"(C:\a\x.mp3)"));
  EXPECT_FALSE(files.fileExists(R"(C:\b\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
}

TEST_F(DeleteSongs, ReportsItsProgress) {
  addSong(R"(C:\a\x.mp3)");
  addSong(R"(C:\b\x.mp3)");
  addSong(R"(C:\y.mp3)");
  deleteSongs(files, progress, catalogueFile, Names{"y", "x"});
  EXPECT_EQ(progress.updates, (std::vector<std::string>{"1/3", "2/3", "3/3"}));
  EXPECT_EQ(progress.ends, 1);
}

TEST_F(DeleteSongs, SkipsNamesWithoutARecord) {
  addSong(R"(C:\x.mp3)");
  deleteSongs(files, progress, catalogueFile, Names{"gone", "X", "x"});
  EXPECT_FALSE(files.fileExists(R"(C:\x.mp3)"));
}

TEST_F(DeleteSongs, StopsAtAMissingFile) {
  addSong(R"(C:\x.mp3)");
  addRecord(R"(C:\gone.mp3)");
  addSong(R"(C:\y.mp3)");
  EXPECT_EQ(failureOfDeleting({"x", "gone", "y"}), ErrorNumber::fileNotFound);
  EXPECT_FALSE(files.fileExists(R"(C:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
  EXPECT_EQ(progress.ends, 1);
}

TEST_F(DeleteSongs, DoesNotDeleteAReadOnlyFile) {
  addSong(R"(C:\x.mp3)");
  files.addFile(R"(C:\x.mp3)", 3, {.readOnly = true});
  EXPECT_EQ(failureOfDeleting({"x"}), ErrorNumber::permissionDenied);
  EXPECT_TRUE(files.fileExists(R"(C:\x.mp3)"));
}

TEST_F(DeleteSongs, FailsAtTheSecondRowOfADeletedSong) {
  addSong(R"(C:\x.mp3)");
  addSong(R"(C:\y.mp3)");
  EXPECT_EQ(failureOfDeleting({"x", "x", "y"}), ErrorNumber::fileNotFound);
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
}

TEST_F(DeleteSongs, NeedsTheCatalogueOnlyForNames) {
  EXPECT_EQ(failureOfDeleting({"x"}), ErrorNumber::fileNotFound);
  EXPECT_EQ(failureOfDeleting({}), std::nullopt);
}

TEST_F(DeleteSongs, DeletesTheFilesOfTheFirstNameBeforeATruncatedRecord) {
  addSong(R"(C:\x.mp3)");
  addSong(R"(C:\y.mp3)");
  appendTruncatedRecord();
  EXPECT_EQ(failureOfDeleting({"x", "y"}), ErrorNumber::inputPastEnd);
  EXPECT_FALSE(files.fileExists(R"(C:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
}

}  // namespace
}  // namespace plimo
