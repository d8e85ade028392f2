// What is specific to the FakeFileSystem.
#include "platform/memory/fake_file_system.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace plimo {
namespace {

int errorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.number());
  }
  return 0;
}

TEST(FakeFileSystem, StartsWithDriveCAndAFolderForTheProgram) {
  FakeFileSystem files;
  ASSERT_EQ(files.drives().size(), 1U);
  EXPECT_EQ(files.drives()[0].root, "C:\\");
  EXPECT_EQ(files.currentDirectory(), "C:\\Plimo");
  EXPECT_TRUE(files.folderExists("C:\\Plimo"));
  EXPECT_FALSE(files.isRootFolder(files.currentDirectory()));
}

TEST(FakeFileSystem, DrivesAreEnumeratedInTheOrderAdded) {
  FakeFileSystem files;
  files.removeDrives();
  files.addDrive('e', DriveType::cdrom, false);
  files.addDrive('C', DriveType::fixed);
  files.addDrive('E', DriveType::removable);
  ASSERT_EQ(files.drives().size(), 2U);
  EXPECT_EQ(files.drives()[0].letter, 'E');
  EXPECT_EQ(files.drives()[0].type, DriveType::removable);
  EXPECT_TRUE(files.drives()[0].ready);
  EXPECT_EQ(files.drives()[1].letter, 'C');
  EXPECT_TRUE(files.folderExists("C:\\Plimo"));
}

TEST(FakeFileSystem, ADriveThatIsNotReadyHidesItsFiles) {
  FakeFileSystem files;
  files.addDrive('D', DriveType::cdrom);
  files.addTextFile("D:\\a.mp3", "x");
  files.setReady('D', false);
  EXPECT_FALSE(files.drives()[1].ready);
  EXPECT_FALSE(files.fileExists("D:\\a.mp3"));
  EXPECT_EQ(errorOf([&] { files.contents("D:\\"); }), 71);
  EXPECT_EQ(errorOf([&] { files.openForReading("D:\\a.mp3"); }), 71);
  EXPECT_EQ(errorOf([&] { files.replaceFile("D:\\a.mp3", Force::no); }), 71);
  EXPECT_EQ(errorOf([&] { files.deleteFile("D:\\a.mp3", Force::no); }), 53);
  files.setReady('D', true);
  EXPECT_TRUE(files.fileExists("D:\\a.mp3"));
}

TEST(FakeFileSystem, PathsAreCaseInsensitiveAndDoubledBackslashesCountAsOne) {
  FakeFileSystem files;
  files.addTextFile("C:\\Music\\\xC3\x84rger.mp3", "x");
  EXPECT_TRUE(files.fileExists("c:\\\\MUSIC\\\\\xC3\xA4RGER.MP3"));
  EXPECT_TRUE(files.sameFile("c:\\new\\X.mp3", "C:\\New\\\\x.MP3"));
  EXPECT_FALSE(files.fileExists("C:/Music/\xC3\x84rger.mp3"));
  EXPECT_TRUE(files.fileExists("\\Music\\\xC3\x84rger.mp3"));
  EXPECT_TRUE(files.fileExists("..\\Music\\.\\\xC3\x84rger.mp3"));
  EXPECT_TRUE(files.isRootFolder("c:\\"));
  EXPECT_TRUE(files.isRootFolder("C:\\\\"));
}

TEST(FakeFileSystem, RelativePathsAreResolvedAgainstTheCurrentDirectory) {
  FakeFileSystem files;
  files.setCurrentDirectory("D:\\My Music\\\\");
  files.addFile("a.mp3");
  EXPECT_EQ(files.currentDirectory(), "D:\\My Music");
  EXPECT_TRUE(files.fileExists("D:\\my music\\A.mp3"));
  files.setCurrentDirectory("C:\\");
  EXPECT_EQ(files.currentDirectory(), "C:\\");
  EXPECT_TRUE(files.isRootFolder(files.currentDirectory()));
}

TEST(FakeFileSystem, PathsAreJoinedAsOnWindows) {
  FakeFileSystem files;
  EXPECT_EQ(files.join("C:\\", "a"), "C:\\a");
  EXPECT_EQ(files.join("C:\\b", "a"), "C:\\b\\a");
  EXPECT_EQ(files.joinAlwaysSeparated("C:\\", "a"), "C:\\\\a");
  EXPECT_EQ(files.joinAlwaysSeparated("C:\\b", "a"), "C:\\b\\a");
  EXPECT_EQ(files.folderOf("C:\\\\a"), "C:\\");
  for (const char* name : {"a\\b", "a/b", "a:b"}) EXPECT_TRUE(files.holdsSeparator(name));
  EXPECT_FALSE(files.holdsSeparator("a-b.c"));
}

TEST(FakeFileSystem, AShortPathShortensEveryComponent) {
  FakeFileSystem files;
  files.addFile("C:\\Program Files\\Winamp\\winamp.exe");
  files.addFile("C:\\My Music\\Dancing Queen.mp3");
  files.addFile("C:\\My Music\\Dancing King.mp3");
  EXPECT_EQ(files.shortFilePath("c:\\program files\\WINAMP\\WinAmp.exe"), "C:\\PROGRA~1\\Winamp\\winamp.exe");
  EXPECT_EQ(files.shortFilePath("C:\\My Music\\Dancing Queen.mp3"), "C:\\MYMUSI~1\\DANCIN~1.MP3");
  EXPECT_EQ(files.shortFilePath("C:\\My Music\\Dancing King.mp3"), "C:\\MYMUSI~1\\DANCIN~2.MP3");
  EXPECT_EQ(files.shortFolderPath("C:\\My Music\\"), "C:\\MYMUSI~1");
}

TEST(FakeFileSystem, AShortNameRemainsWhenAnotherFileIsDeleted) {
  FakeFileSystem files;
  files.addFile("C:\\Dancing Queen.mp3");
  files.addFile("C:\\Dancing King.mp3");
  files.deleteFile("C:\\Dancing Queen.mp3", Force::no);
  EXPECT_EQ(files.shortFilePath("C:\\Dancing King.mp3"), "C:\\DANCIN~2.MP3");
  files.addFile("C:\\Dancing Prince.mp3");
  EXPECT_EQ(files.shortFilePath("C:\\Dancing Prince.mp3"), "C:\\DANCIN~1.MP3");
}

TEST(FakeFileSystem, AReplacedFileKeepsItsSpelling) {
  FakeFileSystem files;
  files.addTextFile("C:\\Songs\\ABBA.mp3", "old");
  files.addTextFile("C:\\Songs\\b.mp3", "b");
  replaceWhole(files, "c:\\songs\\abba.MP3", "new", Force::no);
  EXPECT_EQ(files.spelledName("C:\\songs\\abba.mp3"), "ABBA.mp3");
  files.copyFile("C:\\Songs\\b.mp3", "C:\\Songs\\abba.mp3", true, {});
  EXPECT_EQ(files.spelledName("C:\\songs\\abba.mp3"), "ABBA.mp3");
  EXPECT_EQ(files.fileContent("C:\\songs\\abba.mp3"), "b");
  EXPECT_EQ(files.contents("C:\\Songs").files.size(), 2U);
  EXPECT_EQ(files.spelledName("C:\\SONGS"), "Songs");
  EXPECT_EQ(files.spelledName("C:\\none"), std::nullopt);
}

TEST(FakeFileSystem, AForcedReplacementChangesTheSpelling) {
  FakeFileSystem files;
  files.addTextFile("C:\\Songs\\ABBA.mp3", "old");
  replaceWhole(files, "c:\\songs\\Abba.mp3", "new", Force::yes);
  EXPECT_EQ(files.spelledName("C:\\songs\\abba.mp3"), "Abba.mp3");
  EXPECT_EQ(files.fileContent("C:\\songs\\abba.mp3"), "new");
  EXPECT_EQ(files.contents("C:\\Songs").files.size(), 1U);
}

TEST(FakeFileSystem, AFileIsNotCopiedOntoItselfInAnotherCase) {
  FakeFileSystem files;
  files.addTextFile("C:\\a.mp3", "x");
  EXPECT_EQ(errorOf([&] { files.copyFile("C:\\a.mp3", "C:\\A.MP3", true, {}); }), 70);
  EXPECT_EQ(files.fileContent("C:\\a.mp3"), "x");
}

TEST(FakeFileSystem, AFileWithoutContentKeepsItsSizeWhenReadAndCopied) {
  FakeFileSystem files;
  files.addFile("C:\\a.mp3", 5000);
  EXPECT_EQ(files.fileSize("C:\\a.mp3"), 5000U);
  EXPECT_EQ(files.openForReading("C:\\a.mp3")->bytes(), std::string(5000, '\0'));
  files.copyFile("C:\\a.mp3", "C:\\b.mp3", false, {});
  EXPECT_EQ(files.fileSize("C:\\b.mp3"), 5000U);
}

TEST(FakeFileSystem, ALockedFileCannotBeAccessed) {
  FakeFileSystem files;
  files.addTextFile("C:\\a.mp3", "old", {false, true, false});
  files.addTextFile("C:\\b.mp3", "b");
  EXPECT_EQ(errorOf([&] { files.openForReading("C:\\a.mp3"); }), 70);
  EXPECT_EQ(errorOf([&] { files.replaceFile("C:\\a.mp3", Force::yes); }), 70);
  EXPECT_EQ(errorOf([&] { files.deleteFile("C:\\a.mp3", Force::yes); }), 70);
  EXPECT_EQ(errorOf([&] { files.copyFile("C:\\a.mp3", "C:\\c.mp3", true, {}); }), 70);
  EXPECT_EQ(errorOf([&] { files.copyFile("C:\\b.mp3", "C:\\a.mp3", true, {}); }), 70);
  EXPECT_EQ(files.fileContent("C:\\a.mp3"), "old");
}

TEST(FakeFileSystem, ANameWithForbiddenCharactersIsABadFileName) {
  FakeFileSystem files;
  files.addFile("C:\\b.mp3");
  for (const char* path : {"C:\\a?.mp3", "C:\\*.m3u", "C:\\x/y", "C:\\a\"b"}) {
    EXPECT_EQ(errorOf([&] { files.replaceFile(path, Force::no); }), 52) << path;
    EXPECT_EQ(errorOf([&] { files.copyFile("C:\\b.mp3", path, false, {}); }), 52) << path;
  }
}

TEST(FakeFileSystem, AFullDiskIsWritableAgainAfterFreeingSpace) {
  FakeFileSystem files;
  files.setDiskFull('C', true);
  EXPECT_EQ(errorOf([&] { replaceWhole(files, "C:\\x", "", Force::no); }), 61);
  files.addDrive('D', DriveType::fixed);
  EXPECT_EQ(errorOf([&] { replaceWhole(files, "D:\\x", "y", Force::no); }), 0);
  EXPECT_EQ(errorOf([&] { files.copyFile("D:\\x", "C:\\x", false, {}); }), 61);
  files.setDiskFull('C', false);
  EXPECT_EQ(errorOf([&] { files.copyFile("D:\\x", "C:\\x", false, {}); }), 0);
}

TEST(FakeFileSystem, FilesAndFoldersCanBeRemoved) {
  FakeFileSystem files;
  files.addFile("C:\\Music\\a b c d e.mp3");
  EXPECT_TRUE(files.remove("C:\\music"));
  EXPECT_FALSE(files.remove("C:\\music"));
  EXPECT_FALSE(files.folderExists("C:\\Music"));
  EXPECT_FALSE(files.remove("C:\\"));
}

TEST(FakeFileSystem, AnImpossibleSetupIsAnInvalidArgument) {
  FakeFileSystem files;
  files.addFile("C:\\a");
  EXPECT_THROW(files.addFile("C:\\a\\b"), std::invalid_argument);
  EXPECT_THROW(files.addFolder("C:\\a"), std::invalid_argument);
  EXPECT_THROW(files.addFile("C:\\"), std::invalid_argument);
  EXPECT_THROW(files.addFile("C:\\Plimo"), std::invalid_argument);
  EXPECT_THROW(files.addFile(""), std::invalid_argument);
  EXPECT_THROW(files.addDrive('1', DriveType::fixed), std::invalid_argument);
}

TEST(FakeFileSystem, EachStepOfAReplacementCanFailAndKeepsTheOldFile) {
  std::size_t failures = 0;
  for (std::size_t n = 1;; ++n) {
    FakeFileSystem files;
    files.addTextFile("C:\\x", "old");
    files.failAt(n, ErrorNumber::diskFull);
    const int error = errorOf([&] { replaceWhole(files, "C:\\x", "new", Force::no); });
    if (files.failurePending()) {
      EXPECT_EQ(error, 0);
      EXPECT_EQ(files.fileContent("C:\\x"), "new");
      break;
    }
    ++failures;
    EXPECT_EQ(error, 61);
    EXPECT_EQ(files.fileContent("C:\\x"), "old");
    EXPECT_EQ(errorOf([&] { replaceWhole(files, "C:\\x", "again", Force::no); }), 0) << "it fails only once";
  }
  EXPECT_EQ(failures, 3U);
}

TEST(FakeFileSystem, AWalkTakesOneStepPerFolder) {
  FakeFileSystem files;
  files.remove("C:\\Plimo");
  files.addFile("C:\\a\\b\\x.mp3");
  const std::size_t before = files.steps().size();
  const auto any = [](std::string_view) { return true; };
  files.walk("C:\\", 10, any, any);
  EXPECT_EQ(files.steps().size() - before, 3U);
  files.failAt(2, ErrorNumber::permissionDenied);
  EXPECT_EQ(errorOf([&] { files.walk("C:\\", 10, any, any); }), 70);
}

TEST(FakeFileSystem, StepsAreRecordedInOrder) {
  using Step = FakeFileSystem::Step;
  FakeFileSystem files;
  replaceWhole(files, "C:\\x", "new", Force::no);
  files.deleteFile("C:\\x", Force::no);
  EXPECT_EQ(files.steps(), (std::vector<Step>{Step::replace, Step::write, Step::commit, Step::remove}));
}

TEST(FakeFileSystem, TheDiskCanChangeBeforeAStep) {
  FakeFileSystem files;
  files.changeAt(2, [&] { files.setDiskFull('C', true); });
  EXPECT_EQ(errorOf([&] { replaceWhole(files, "C:\\x", "new", Force::no); }), 61);
  EXPECT_FALSE(files.failurePending());
}

TEST(FakeFileSystem, AnExistenceCheckCanFail) {
  FakeFileSystem files;
  files.addFile("C:\\x");
  files.failExistenceCheckAt(2);
  EXPECT_TRUE(files.fileExists("C:\\x"));
  EXPECT_FALSE(files.folderExists("C:\\"));
  EXPECT_TRUE(files.fileExists("C:\\x"));
  EXPECT_EQ(files.existenceChecks(), 3U);
}

TEST(CheckedFileExists, DoesNotTakeAFailedCheckForAMissingFile) {
  FakeFileSystem files;
  files.addFile("C:\\x");
  files.addFile("C:\\unreadable", 0, {.unreadable = true});
  files.failExistenceCheckAt(1);
  EXPECT_TRUE(checkedFileExists(files, "C:\\x"));
  files.failExistenceCheckAt(1);
  EXPECT_EQ(errorOf([&] { checkedFileExists(files, "C:\\unreadable"); }), 75);
  EXPECT_FALSE(checkedFileExists(files, "C:\\missing"));
  EXPECT_FALSE(checkedFileExists(files, "C:\\missing\\x"));
  EXPECT_FALSE(checkedFileExists(files, "C:\\Plimo"));
}

TEST(FakeFileSystem, AMoveCanBeImpossible) {
  FakeFileSystem files;
  files.addTextFile("C:\\x", "x");
  files.setMovesFiles(false);
  EXPECT_FALSE(files.moveFile("C:\\x", "C:\\y"));
  EXPECT_TRUE(files.fileExists("C:\\x"));
}

}  // namespace
}  // namespace plimo
