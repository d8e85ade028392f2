// The folder of Winamp where names are case-sensitive and drives can be nested.
#include "prefs/winamp_folder.h"

#include <gtest/gtest.h>

#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

TEST(LinuxWinampFolder, OnACaseSensitiveFileSystemThePathHasTheNameOfTheFile) {
  TemporaryFolder folder;
  LinuxFiles files(std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()}});
  writeFile(folder / "WinAmp.EXE", "");
  EXPECT_EQ(winampIn(files, folder.path()), "WinAmp.EXE");
  EXPECT_EQ(winampPath(files, folder.path(), "WinAmp.EXE"), folder / "WinAmp.EXE");
  writeFile(folder / "winamp.exe", "");
  EXPECT_EQ(winampPath(files, folder.path(), "WinAmp.EXE"), folder / "winamp.exe");
}

TEST(LinuxWinampFolder, OnACaseSensitiveFileSystemTheFolderKeepsItsCase) {
  TemporaryFolder folder;
  LinuxFiles files(std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()}});
  makeFolders(folder / "Winamp");
  EXPECT_EQ(folderOfWinamp(files, folder / "Winamp/WinAmp.exe"), folder / "Winamp");
  EXPECT_EQ(folderOfWinamp(files, folder / "winamp/winamp.exe"), folder.path());
}

TEST(LinuxWinampFolder, OfNestedDrivesTheInnermostHoldsTheFolder) {
  TemporaryFolder folder;
  makeFolders(folder / "disk/Winamp");
  LinuxFiles files(
      std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()}, {'D', DriveType::fixed, folder / "disk"}});
  EXPECT_EQ(driveHolding(files, folder / "disk/Winamp"), 'D');
  EXPECT_EQ(driveHolding(files, folder / "disks"), 'C');
  EXPECT_EQ(driveHolding(files, "/"), 0);
}

}  // namespace
}  // namespace plimo
