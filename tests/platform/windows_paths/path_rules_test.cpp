#include "platform/windows_paths/path_rules.h"

#include <gtest/gtest.h>

namespace plimo::windows_paths {
namespace {

const std::string current = R"(C:\Plimo\Data)";

std::string absolute(std::string_view path) { return absolutePath(path, current).value_or("none"); }

TEST(WindowsPath, AnAbsolutePathIsTidied) {
  EXPECT_EQ(absolute(R"(C:\Music\a.mp3)"), R"(C:\Music\a.mp3)");
  EXPECT_EQ(absolute(R"(c:/Music//x\..\a.mp3)"), R"(C:\Music\a.mp3)");
  EXPECT_EQ(absolute(R"(C:\\winamp.exe)"), R"(C:\winamp.exe)");
  EXPECT_EQ(absolute(R"(C:\Music\)"), R"(C:\Music)");
  EXPECT_EQ(absolute(R"(C:\..\..)"), R"(C:\)");
}

TEST(WindowsPath, ARelativePathIsBelowTheCurrentDirectory) {
  EXPECT_EQ(absolute("list.m3u"), R"(C:\Plimo\Data\list.m3u)");
  EXPECT_EQ(absolute(R"(..\x)"), R"(C:\Plimo\x)");
  EXPECT_EQ(absolute("."), R"(C:\Plimo\Data)");
  EXPECT_EQ(absolute(R"(\Music)"), R"(C:\Music)");
  EXPECT_EQ(absolute("c:x"), R"(C:\Plimo\Data\x)");
  EXPECT_EQ(absolute("D:x"), R"(D:\x)") << "of another drive, its root";
  EXPECT_EQ(absolutePath(R"(\x)", R"(\\nas\music\a)"), R"(\\nas\music\x)");
  EXPECT_EQ(absolutePath(R"(..\..\x)", R"(\\nas\music\a)"), R"(\\nas\music\x)");
}

TEST(WindowsPath, DotsAndBlanksAtTheEndOfANameAreKept) {
  EXPECT_EQ(absolute(R"(C:\Music. \song..)"), R"(C:\Music. \song..)");
  EXPECT_EQ(absolute(R"(C:\a\...\b)"), R"(C:\a\...\b)");
}

TEST(WindowsPath, AnAbsolutePathHasADriveAndASeparatorOrAShare) {
  for (const char* path : {R"(C:\)", "c:/a", R"(\\nas\music\a)"}) EXPECT_TRUE(isAbsolutePath(path)) << path;
  for (const char* path : {"", "a", "C:", "C:a", R"(\a)", R"(\\nas)"}) EXPECT_FALSE(isAbsolutePath(path)) << path;
}

TEST(WindowsPath, AShareIsARoot) {
  EXPECT_EQ(absolute(R"(\\nas\music)"), R"(\\nas\music)");
  EXPECT_EQ(absolute(R"(//nas/music/a/../../b)"), R"(\\nas\music\b)");
  EXPECT_TRUE(isRootPath(R"(\\nas\music)"));
  EXPECT_FALSE(isRootPath(R"(\\nas\music\a)"));
  EXPECT_EQ(parentPath(R"(\\nas\music\a)"), R"(\\nas\music)");
  EXPECT_EQ(parentPath(R"(\\nas\music)"), R"(\\nas\music)");
  EXPECT_EQ(joinPath(R"(\\nas\music)", "a"), R"(\\nas\music\a)");
}

TEST(WindowsPath, WhatNamesNoFileIsRefused) {
  for (const char* path : {"", R"(\\)", R"(\\nas)", R"(\\nas\)", R"(\\.\PhysicalDrive0)", R"(\\.\C:)",
                           R"(\\?\GLOBALROOT\x)", R"(\\?\Volume{x}\a)"}) {
    EXPECT_EQ(absolute(path), "none") << path;
  }
}

TEST(WindowsPath, TheExtendedFormIsTheInverseOfThePlainOne) {
  EXPECT_EQ(extendedPath(R"(C:\a b.)"), R"(\\?\C:\a b.)");
  EXPECT_EQ(extendedPath(R"(\\nas\music\a)"), R"(\\?\UNC\nas\music\a)");
  EXPECT_EQ(plainPath(R"(\\?\C:\a b.)"), R"(C:\a b.)");
  EXPECT_EQ(plainPath(R"(\\?\unc\nas\music\a)"), R"(\\nas\music\a)");
  EXPECT_EQ(plainPath(R"(C:\a)"), R"(C:\a)");
  EXPECT_EQ(absolute(R"(\\?\C:\a)"), R"(C:\a)");
  EXPECT_EQ(absolute(R"(\\?\UNC\nas\music\a)"), R"(\\nas\music\a)");
}

TEST(WindowsPath, AStreamOfAFileCannotBeReached) {
  EXPECT_EQ(extendedPath(R"(C:\a.mp3:stream)"), R"(\\?\C:\a.mp3?stream)");
  EXPECT_EQ(extendedPath(std::string("C:\\a\0b", 6)), R"(\\?\C:\a?b)");
}

TEST(WindowsPath, TheParentOfAnEntryOfTheRootIsTheRoot) {
  EXPECT_EQ(parentPath(R"(C:\a)"), R"(C:\)");
  EXPECT_EQ(parentPath(R"(C:\\a)"), R"(C:\)");
  EXPECT_EQ(parentPath(R"(C:\)"), R"(C:\)");
  EXPECT_EQ(parentPath("C:/a/b"), "C:/a");
  EXPECT_EQ(parentPath("a"), "");
  EXPECT_EQ(baseName("C:/a/b.mp3"), "b.mp3");
  EXPECT_TRUE(isRootPath(R"(C:\)"));
  EXPECT_FALSE(isRootPath(R"(C:\a)"));
}

TEST(WindowsPath, AFolderContainsWhatIsBelowItInAnyCase) {
  EXPECT_TRUE(folderContains(R"(C:\Music)", R"(c:\MUSIC\a)"));
  EXPECT_TRUE(folderContains(R"(C:\Music)", R"(C:\Music)"));
  EXPECT_TRUE(folderContains(R"(C:\)", R"(C:\x)"));
  EXPECT_FALSE(folderContains(R"(C:\Music)", R"(C:\Musical)"));
  EXPECT_FALSE(folderContains(R"(C:\Music\a)", R"(C:\Music)"));
}

TEST(WindowsName, TheNamesOfDevicesAreReserved) {
  for (const char* name :
       {"CON", "nul", "Aux.mp3", "PRN.tar.gz", "com1", "LPT9.txt", "NUL .mp3", "COM\u00B2", "conin$"}) {
    EXPECT_FALSE(isAllowedName(name)) << name;
  }
  for (const char* name : {"CONCERT.mp3", "com", "COM0", "COM10.mp3", "nullo", "my con.mp3", "LPT", ".nul"}) {
    EXPECT_TRUE(isAllowedName(name)) << name;
  }
}

TEST(WindowsName, SomeCharactersAreForbidden) {
  for (const char* name :
       {"", ".", "..", "a:b", "a*", "a?", "a\"", "<a", "a>", "a|b", "a/b", "a\\b", "a\nb", "a\xFF"}) {
    EXPECT_FALSE(isAllowedName(name)) << name;
  }
  for (const char* name : {"a.", "a ", "...", "a;b,c=d[e]+'^~`!@#$%&()-_{}", "caf\u00E9.mp3", "\xED\xA0\xBD"}) {
    EXPECT_TRUE(isAllowedName(name)) << name;
  }
}

TEST(WindowsName, ANameHasAtMost255Units) {
  EXPECT_TRUE(isAllowedName(std::string(255, 'x')));
  EXPECT_FALSE(isAllowedName(std::string(256, 'x')));
  std::string accents;
  for (int i = 0; i < 255; ++i) accents += "\u20AC";
  EXPECT_TRUE(isAllowedName(accents));
}

}  // namespace
}  // namespace plimo::windows_paths
