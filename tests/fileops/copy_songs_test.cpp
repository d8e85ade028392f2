#include "fileops/copy_songs.h"

#include "fileops/library.h"

namespace plimo {
namespace {

class CopySongs : public Library {
 protected:
  CopySongs() { files.addFolder("D:\\"); }

  CopyResult copy(const Names& names, const std::string& folder = "D:\\", bool firstRowSelected = true) {
    return copySongs(files, progress, catalogueFile, {names, firstRowSelected}, folder,
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

// Records how much of the current file has been copied.
class RecordingBytes : public QuietProgress {
 public:
  void update(const ProgressUpdate& update) override {
    QuietProgress::update(update);
    bytes.push_back(std::to_string(update.bytes) + "/" + std::to_string(update.size));
    if (afterUpdate) afterUpdate();
  }

  std::vector<std::string> bytes;
  std::function<void()> afterUpdate;
};

TEST_F(CopySongs, ReportsTheBytesOfEachFileFromTheStart) {
  addSong(R"(C:\m\x.mp3)");
  addSong(R"(C:\m\yy.mp3)");
  RecordingBytes bytes;
  copySongs(files, bytes, catalogueFile, {Names{"x", "yy"}, true}, "D:\\", [](std::string_view) {});
  EXPECT_EQ(bytes.bytes, (std::vector<std::string>{"0/0", "10/10", "0/0", "11/11"}));
}

TEST_F(CopySongs, CountsWhatWasCopiedBeforeItWasCancelled) {
  addSong(R"(C:\m\x.mp3)");
  addSong(R"(C:\m\y.mp3)");
  for (const int update : {3, 4}) {  // before the second file, and in it
    QuietProgress cancelling;
    cancelling.cancelAfter = update;
    const std::string folder = "C:\\out" + std::to_string(update);
    files.addFolder(folder);
    const CopyResult result =
        copySongs(files, cancelling, catalogueFile, {Names{"x", "y"}, true}, folder, [](std::string_view) {});
    EXPECT_EQ(result.copied, 1U) << update;
    EXPECT_FALSE(files.fileExists(folder + R"(\y.mp3)"));
  }
}

TEST_F(CopySongs, FailsIfTheFolderIsMissingForTheFirstSong) {
  addSong(R"(C:\m\x.mp3)");
  EXPECT_EQ(failureOf([&] { copy({"x"}, R"(C:\gone)"); }), ErrorNumber::pathNotFound);
}

TEST_F(CopySongs, CountsTheSongsForWhichTheFolderIsMissingLater) {
  for (const char* song : {"x", "y", "z"}) addSong(std::string(R"(C:\m\)") + song + ".mp3");
  files.addFolder(R"(C:\out)");
  RecordingBytes removing;
  removing.afterUpdate = [&] {
    if (removing.bytes.size() == 3) files.remove(R"(C:\out)");
  };
  const CopyResult result =
      copySongs(files, removing, catalogueFile, {Names{"x", "y", "z"}, true}, R"(C:\out)", [](std::string_view) {});
  EXPECT_EQ(result.copied, 1U);
  EXPECT_EQ(result.failed, 2U);
  EXPECT_EQ(result.reason, "Path not found");
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
