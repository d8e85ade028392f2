#include "fileops/delete_songs.h"

#include "fileops/library.h"

namespace plimo {
namespace {

class DeleteSongs : public Library {
 protected:
  void deleteFiles(const Names& names) { SongDeletion(files, catalogueFile, names).run(progress, deleted_); }
  std::optional<ErrorNumber> failureOfDeleting(const Names& names) {
    return failureOf([&] { deleteFiles(names); });
  }

  std::size_t deleted_ = 0;
};

TEST_F(DeleteSongs, DeletesEveryFileOfAName) {
  addSong(R"(C:\a\x.mp3)");
  addSong(R"(C:\y.mp3)");
  addSong(R"(C:\b\x.mp3)");
  deleteFiles(Names{"x"});
  EXPECT_FALSE(files.fileExists(R"(C:\a\x.mp3)"));
  EXPECT_FALSE(files.fileExists(R"(C:\b\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
}

TEST_F(DeleteSongs, ReportsItsProgress) {
  addSong(R"(C:\a\x.mp3)");
  addSong(R"(C:\b\x.mp3)");
  addSong(R"(C:\y.mp3)");
  deleteFiles(Names{"y", "x"});
  EXPECT_EQ(progress.updates, (std::vector<std::string>{"1/3", "2/3", "3/3"}));
  EXPECT_EQ(progress.ends, 1);
}

TEST_F(DeleteSongs, SkipsNamesWithoutARecord) {
  addSong(R"(C:\x.mp3)");
  deleteFiles(Names{"gone", "X", "x"});
  EXPECT_FALSE(files.fileExists(R"(C:\x.mp3)"));
}

TEST_F(DeleteSongs, StopsAtAMissingFile) {
  addSong(R"(C:\x.mp3)");
  addRecord(R"(C:\gone.mp3)");
  addSong(R"(C:\y.mp3)");
  EXPECT_EQ(failureOfDeleting({"x", "gone", "y"}), ErrorNumber::fileNotFound);
  EXPECT_FALSE(files.fileExists(R"(C:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
  EXPECT_EQ(deleted_, 1U);
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
  EXPECT_EQ(progress.ends, 0);
  EXPECT_EQ(failureOfDeleting({}), std::nullopt);
  EXPECT_EQ(progress.ends, 0) << "no panel for nothing";
}

TEST_F(DeleteSongs, DeletesTheFilesOfTheFirstNameBeforeATruncatedRecord) {
  addSong(R"(C:\x.mp3)");
  addSong(R"(C:\y.mp3)");
  appendTruncatedRecord();
  EXPECT_EQ(failureOfDeleting({"x", "y"}), ErrorNumber::inputPastEnd);
  EXPECT_FALSE(files.fileExists(R"(C:\x.mp3)"));
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
}

TEST_F(DeleteSongs, DeletesNothingThatIsNotNamedLikeASong) {
  files.addTextFile(R"(C:\thesis.odt)", "x");
  std::string record;
  appendRecord(record, {R"(C:\thesis.odt)", "A", "B", "Tiger.mp3"});
  files.addTextFile(catalogueFile, record);
  EXPECT_EQ(failureOfDeleting({"Tiger"}), ErrorNumber::fileNotFound);
  EXPECT_TRUE(files.fileExists(R"(C:\thesis.odt)"));
}

TEST_F(DeleteSongs, StopsIfTheUserCancels) {
  addSong(R"(C:\x.mp3)");
  addSong(R"(C:\y.mp3)");
  progress.cancelAfter = 2;
  deleteFiles(Names{"x", "y"});
  EXPECT_EQ(deleted_, 1U);
  EXPECT_TRUE(files.fileExists(R"(C:\y.mp3)"));
}

TEST_F(DeleteSongs, CountsEachFileAndFolderOnce) {
  addSong(R"(C:\a\x.mp3)");
  addSong(R"(C:\a\y.mp3)");
  addSong(R"(C:\b\x.mp3)");
  const SongFiles found = SongDeletion(files, catalogueFile, Names{"x", "x", "y", "x", "gone"}).extent();
  EXPECT_EQ(found.files, 3U);
  EXPECT_EQ(found.folders, 2U);
  EXPECT_EQ(SongDeletion(files, R"(C:\none)", {}).extent().files, 0U);
}

}  // namespace
}  // namespace plimo
