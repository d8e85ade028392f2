#include "prefs/winamp_folder.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {
namespace {

TEST(WinampFolder, WinampIsFoundInAnyCaseByItsShortName) {
  FakeFileSystem files;
  files.addFile("C:\\A\\Readme.txt");
  files.addFile("C:\\A\\WinAmp.exE");
  files.addFile("C:\\B\\Winamp Player.exe");
  files.addFile("C:\\B\\winamp.exe.bak");
  files.addFile("C:\\B\\xwinamp.exe");
  files.addFile("C:\\C\\winamp.exe\\inner.txt");
  EXPECT_EQ(winampIn(files, "C:\\A"), "WinAmp.exE");
  EXPECT_EQ(winampIn(files, "C:\\B"), std::nullopt);
  EXPECT_EQ(winampIn(files, "C:\\C"), std::nullopt) << "a folder is not a program";
}

TEST(WinampFolder, AFolderThatCannotBeReadIsAnError) {
  FakeFileSystem files;
  EXPECT_THROW(winampIn(files, "C:\\nowhere"), RuntimeError);
}

TEST(WinampFolder, ThePathIsInLowerCaseAndHasASeparatorAfterARootToo) {
  FakeFileSystem files;
  files.addFile("C:\\Winamp\\WINAMP.EXE");
  EXPECT_EQ(winampPath(files, "C:\\Winamp", "WINAMP.EXE"), "C:\\Winamp\\winamp.exe");
  EXPECT_EQ(winampPath(files, "C:\\", "winamp.exe"), "C:\\\\winamp.exe");
}

TEST(WinampFolder, AFolderNamedLikeTheProgramIsNotItsOwnFolder) {
  FakeFileSystem files;
  files.addFolder("C:\\A\\winamp.exe");
  EXPECT_EQ(folderOfWinamp(files, "C:\\A\\winamp.exe"), "C:\\A");
}

TEST(WinampFolder, AStoredPathOfAnyLengthHasAnAncestorThatExists) {
  FakeFileSystem files;
  files.addFolder("C:\\A");
  std::string path = "C:\\A";
  while (path.size() < 40'000) path += "\\gone";
  EXPECT_EQ(folderOfWinamp(files, path), "C:\\A");
}

TEST(WinampFolder, TheFolderOfAStoredPathIsInCapitals) {
  FakeFileSystem files;
  files.addFolder("C:\\Program Files\\Winamp");
  EXPECT_EQ(folderOfWinamp(files, "C:\\Program Files\\Winamp\\winamp.exe"), "C:\\PROGRAM FILES\\WINAMP");
  EXPECT_EQ(folderOfWinamp(files, "C:\\\\winamp.exe"), "C:\\");
  EXPECT_EQ(folderOfWinamp(files, "C:\\Program Files\\Winamp"), "C:\\PROGRAM FILES\\WINAMP");
}

TEST(WinampFolder, AMissingFolderIsReplacedByItsNearestExistingAncestor) {
  FakeFileSystem files;
  files.addFolder("C:\\Programs");
  files.addDrive('D', DriveType::cdrom, false);
  EXPECT_EQ(folderOfWinamp(files, "C:\\Programs\\Old\\Winamp\\winamp.exe"), "C:\\PROGRAMS");
  EXPECT_EQ(folderOfWinamp(files, "C:\\Gone\\winamp.exe"), "C:\\");
  EXPECT_EQ(folderOfWinamp(files, "D:\\Winamp\\winamp.exe"), std::nullopt);
  EXPECT_EQ(folderOfWinamp(files, "winamp.exe"), std::nullopt);
  EXPECT_EQ(folderOfWinamp(files, ""), std::nullopt);
}

TEST(WinampFolder, ADriveHoldsTheFoldersBelowItsRoot) {
  FakeFileSystem files;
  files.addDrive('D', DriveType::cdrom);
  EXPECT_EQ(driveHolding(files, "d:\\Winamp"), 'D');
  EXPECT_EQ(driveHolding(files, "C:\\"), 'C');
  EXPECT_EQ(driveHolding(files, "E:\\Winamp"), 0);
  EXPECT_EQ(driveHolding(files, ""), 0);
}

}  // namespace
}  // namespace plimo
