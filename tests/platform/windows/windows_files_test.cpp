// What Windows adds to the contract: names, attributes, sharing, links, drives.
#include "platform/windows/windows_files.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"
#include "support/temporary_folder.h"
#include "support/windows/disk.h"

namespace plimo {
namespace {

using Names = std::vector<std::string>;

class WindowsFilesTest : public testing::Test {
 protected:
  static int errorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  }
  Names namesIn(const std::string& folder) { return files_.contents(folder).files; }
  int replacing(const std::string& path, Force force = Force::no) {
    return errorOf([&] { replaceWhole(files_, path, "new", force); });
  }

  // Lists, reads, copies, renames and deletes the file; it must be the only one in its folder.
  void useEverywhere(const std::string& folder, const std::string& name) {
    const std::string path = files_.join(folder, name);
    EXPECT_EQ(namesIn(folder), Names{name});
    std::string found;
    files_.walk(
        folder, 0, [](std::string_view) { return true; },
        [&](std::string_view file) {
          found = file;
          return true;
        });
    EXPECT_EQ(found, path);
    EXPECT_EQ(files_.fileSize(path), 3U);
    EXPECT_EQ(readWhole(files_, path), "old");
    EXPECT_EQ(replacing(path), 0);
    EXPECT_EQ(namesIn(folder), Names{name});
    const std::string other = folder_ / "other";
    makeFolders(other);
    EXPECT_TRUE(files_.copyFile(path, files_.join(other, name), false));
    EXPECT_EQ(namesIn(other), Names{name});
    EXPECT_EQ(readWhole(files_, files_.join(other, name)), "new");
    EXPECT_TRUE(files_.moveFile(path, files_.join(folder, "plain")));
    EXPECT_TRUE(files_.moveFile(files_.join(folder, "plain"), path));
    EXPECT_EQ(namesIn(folder), Names{name});
    files_.deleteFile(path, Force::no);
    EXPECT_EQ(namesIn(folder), Names{});
  }

  // False if it cannot be made, which takes a right or the developer mode, or is not what the program takes for a link.
  static bool makeLink(const std::string& link, const std::string& target, DWORD flags) {
    ::CreateSymbolicLinkW(nativePath(link).c_str(), nativePath(target).c_str(),
                          flags | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    const auto status = linkStatus(link);
    return status && status->isLink;
  }

  TemporaryFolder folder_;
  WindowsFiles windowsFiles_{std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}};
  FileSystemObject& files_ = windowsFiles_;
};

struct OddName {
  const char* label;
  std::string name;
};

class OddWindowsName : public WindowsFilesTest, public testing::WithParamInterface<OddName> {};

INSTANTIATE_TEST_SUITE_P(File, OddWindowsName,
                         testing::Values(OddName{"Accents", "\u00C4\u00E9\u4E2D\u6587 \U0001F3B5.mp3"},
                                         OddName{"UnpairedSurrogate", "a\xED\xA0\xBD - b.mp3"},
                                         OddName{"TrailingDots", "Wait....mp3..."}, OddName{"TrailingBlank", "song "},
                                         OddName{"LeadingBlanks", "  a - b.mp3"},
                                         OddName{"Longest", std::string(251, 'x') + ".mp3"}, OddName{"Hidden", ".mp3"}),
                         [](const auto& odd) { return std::string(odd.param.label); });

TEST_P(OddWindowsName, CanBeUsedEverywhere) {
  if (!canBeNamed(GetParam().name)) GTEST_SKIP() << "this file system does not have such names";
  writeFile(folder_ / ("music/" + GetParam().name), "old");
  useEverywhere(folder_ / "music", GetParam().name);
}

TEST_F(WindowsFilesTest, AFolderWithDotsAtItsEndIsWalked) {
  writeFile(folder_ / "Best of.../Vol. /a.mp3", "old");
  useEverywhere(folder_ / "Best of.../Vol. ", "a.mp3");
  EXPECT_EQ(files_.contents(folder_ / "Best of...").folders, Names{"Vol. "});
}

TEST_F(WindowsFilesTest, APathMayBeLongerThan260Characters) {
  std::string folder = folder_.path();
  for (int level = 0; level < 6; ++level) folder += "\\" + std::string(100, static_cast<char>('a' + level));
  writeFile(folder + "\\a - b.mp3", "old");
  Names found;
  files_.walk(
      folder_.path(), 10, [](std::string_view) { return true; },
      [&](std::string_view path) {
        found.emplace_back(path);
        return true;
      });
  EXPECT_EQ(found, Names{folder + "\\a - b.mp3"});
  EXPECT_TRUE(files_.sameFile(files_.shortFilePath(found[0]), found[0]));
  useEverywhere(folder, "a - b.mp3");
}

TEST_F(WindowsFilesTest, ANameIsTheSameInAnyCaseAndKeepsTheCaseItHas) {
  writeFile(folder_ / "Music/Song.MP3", "old");
  EXPECT_TRUE(files_.fileExists(folder_ / "MUSIC/song.mp3"));
  EXPECT_TRUE(files_.sameFile(folder_ / "music/SONG.mp3", folder_ / "Music/Song.MP3"));
  EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "Music/Song.MP3", folder_ / "Music/song.mp3", true); }), 70);
  EXPECT_EQ(errorOf([&] { files_.moveFile(folder_ / "Music/Song.MP3", folder_ / "Music/song.mp3"); }), 70);
  EXPECT_EQ(namesIn(folder_ / "Music"), Names{"Song.MP3"});
}

TEST_F(WindowsFilesTest, AnInvalidPathNamesNoFile) {
  for (const std::string name : {"a:b", "a*", "a?", "*", "a|b", "a\"b", "caf\xE9"}) {
    EXPECT_FALSE(files_.fileExists(folder_ / name)) << name;
    EXPECT_EQ(errorOf([&] { files_.openForReading(folder_ / name); }), 53) << name;
    EXPECT_EQ(errorOf([&] { files_.contents(folder_ / name); }), 76) << name;
    EXPECT_EQ(replacing(folder_ / name), 52) << name;
  }
  EXPECT_FALSE(files_.fileExists(R"(\\.\NUL)"));
  EXPECT_FALSE(files_.fileExists("NUL"));
  EXPECT_EQ(namesIn(folder_.path()), Names{});
}

TEST_F(WindowsFilesTest, AStreamOfAFileIsNoFile) {
  writeFile(folder_ / "a.mp3", "old");
  EXPECT_FALSE(files_.fileExists(folder_ / "a.mp3::$DATA"));
  EXPECT_EQ(errorOf([&] { files_.deleteFile(folder_ / "a.mp3::$DATA", Force::yes); }), 53);
  EXPECT_EQ(readFile(folder_ / "a.mp3"), "old");
}

TEST_F(WindowsFilesTest, TheNameOfADeviceIsNotGivenToAFile) {
  writeFile(folder_ / "a.mp3", "old");
  for (const char* name : {"NUL", "con.mp3", "COM1.m3u", "Lpt9"}) {
    EXPECT_EQ(replacing(folder_ / name), 52) << name;
    EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "a.mp3", folder_ / name, true); }), 52) << name;
    EXPECT_EQ(errorOf([&] { files_.moveFile(folder_ / "a.mp3", folder_ / name); }), 52) << name;
  }
  EXPECT_EQ(replacing(folder_ / std::string(256, 'x')), 52);
  EXPECT_EQ(namesIn(folder_.path()), Names{"a.mp3"});
}

TEST_F(WindowsFilesTest, AReplacedFileKeepsItsAttributes) {
  const std::string path = folder_ / "list.m3u";
  writeFile(path, "old");
  setAttributes(path, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  EXPECT_EQ(replacing(path), 0);
  EXPECT_EQ(readFile(path), "new");
  EXPECT_EQ(attributesOf(path) & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY),
            DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM});
}

TEST_F(WindowsFilesTest, AForcedFileIsNoLongerReadOnly) {
  const std::string path = folder_ / "list.m3u";
  writeFile(path, "old");
  setAttributes(path, FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(replacing(path), 75);
  EXPECT_EQ(replacing(path, Force::yes), 0);
  EXPECT_EQ(attributesOf(path) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(WindowsFilesTest, ANewFileIsNotHidden) {
  EXPECT_EQ(replacing(folder_ / "new"), 0);
  EXPECT_EQ(attributesOf(folder_ / "new") & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY), 0U);
}

TEST_F(WindowsFilesTest, ACopyHasTheTimeAndTheAttributes) {
  const std::string from = folder_ / "a.mp3";
  const std::string to = folder_ / "b.mp3";
  writeFile(from, "old");
  {
    const UniqueHandle file = openShared(from, FILE_WRITE_ATTRIBUTES);
    const FILETIME time{0x12345680, 0x01C00000};
    ASSERT_TRUE(::SetFileTime(file.get(), nullptr, nullptr, &time));
  }
  setAttributes(from, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(files_.copyFile(from, to, false));
  EXPECT_EQ(::CompareFileTime(&fileStatus(from)->written, &fileStatus(to)->written), 0);
  constexpr DWORD kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
  EXPECT_EQ(attributesOf(to) & kept, kept);
}

TEST_F(WindowsFilesTest, AFileThatIsNotSharedIsInUse) {
  const std::string path = folder_ / "a.mp3";
  writeFile(path, "old");
  writeFile(folder_ / "b.mp3", "b");
  const UniqueHandle owner(
      ::CreateFileW(nativePath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(owner);
  EXPECT_EQ(errorOf([&] { files_.openForReading(path); }), 70);
  EXPECT_EQ(replacing(path), 70);
  EXPECT_EQ(errorOf([&] { files_.deleteFile(path, Force::yes); }), 70);
  EXPECT_EQ(errorOf([&] { files_.copyFile(path, folder_ / "c.mp3", false); }), 70);
  EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "b.mp3", path, true); }), 70);
  EXPECT_EQ(errorOf([&] { files_.moveFile(path, folder_ / "c.mp3"); }), 70);
  EXPECT_EQ(errorOf([&] { files_.moveFile(folder_ / "b.mp3", path); }), 70);
  EXPECT_EQ(files_.fileSize(path), 3U);
  EXPECT_EQ(namesIn(folder_.path()), (Names{"a.mp3", "b.mp3"}));
}

TEST_F(WindowsFilesTest, AFileThatIsBeingPlayedCanBeCopied) {
  const std::string path = folder_ / "a.mp3";
  writeFile(path, "old");
  const UniqueHandle player(
      ::CreateFileW(nativePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(readWhole(files_, path), "old");
  EXPECT_TRUE(files_.copyFile(path, folder_ / "b.mp3", false));
}

TEST_F(WindowsFilesTest, LeftoversOfKilledProcessesAreRemoved) {
  for (const char* name : {".plimo-1-0.tmp", ".plimo-99-12.tmp", ".plimo-1.tmp", ".plimo-x-1.tmp", "plimo-1-0.tmp"}) {
    writeFile(folder_ / name, "x");
  }
  const UniqueHandle running(::CreateFileW(nativePath(folder_ / ".plimo-99-12.tmp").c_str(), GENERIC_WRITE, 0, nullptr,
                                           OPEN_EXISTING, 0, nullptr));
  files_.removeLeftovers(folder_.path());
  EXPECT_EQ(namesIn(folder_.path()), (Names{".plimo-1.tmp", ".plimo-99-12.tmp", ".plimo-x-1.tmp", "plimo-1-0.tmp"}));
  files_.removeLeftovers(folder_ / "missing");
}

TEST_F(WindowsFilesTest, FoldersOfTheSystemAreNotEnteredInARoot) {
  for (const char* name : {"$Recycle.bin", "System Volume Information", "Music", "Music/$RECYCLE.BIN"}) {
    writeFile(folder_ / name + "\\a.mp3", "x");
  }
  EXPECT_EQ(files_.contents(folder_.path()).folders, Names{"Music"});
  Names found;
  files_.walk(
      folder_.path(), 10, [](std::string_view) { return true; },
      [&](std::string_view path) {
        found.emplace_back(path);
        return true;
      });
  EXPECT_EQ(found, (Names{folder_ / "Music/a.mp3", folder_ / "Music/$RECYCLE.BIN/a.mp3"}));
}

TEST_F(WindowsFilesTest, ALinkToAFolderIsShownButNotWalked) {
  writeFile(folder_ / "Music/a.mp3", "x");
  if (!makeLink(folder_ / "Link", folder_ / "Music", SYMBOLIC_LINK_FLAG_DIRECTORY)) {
    GTEST_SKIP() << "links cannot be made here";
  }
  EXPECT_EQ(files_.contents(folder_.path()).folders, (Names{"Link", "Music"}));
  Names found;
  files_.walk(
      folder_.path(), 10, [](std::string_view) { return true; },
      [&](std::string_view path) {
        found.emplace_back(path);
        return true;
      });
  EXPECT_EQ(found, Names{folder_ / "Music/a.mp3"});
}

TEST_F(WindowsFilesTest, AFileIsWrittenThroughALinkButAnOwnFileReplacesIt) {
  writeFile(folder_ / "out/real.m3u", "old");
  makeFolders(folder_ / "own");
  const std::string link = folder_ / "own/list.m3u";
  if (!makeLink(link, folder_ / "out/real.m3u", 0)) GTEST_SKIP() << "links cannot be made here";
  EXPECT_EQ(replacing(link), 0);
  EXPECT_EQ(readFile(folder_ / "out/real.m3u"), "new");
  writeFile(folder_ / "out/real.m3u", "old");
  EXPECT_EQ(replacing(link, Force::own), 0);
  EXPECT_EQ(readFile(folder_ / "out/real.m3u"), "old");
  EXPECT_EQ(readFile(link), "new");
}

TEST_F(WindowsFilesTest, RelativePathsAreBelowTheCurrentDirectory) {
  writeFile(folder_ / "sub/a.txt", "x");
  const std::string before = files_.currentDirectory();
  ASSERT_TRUE(::SetCurrentDirectoryW(toWide(folder_.path()).c_str()));
  EXPECT_TRUE(files_.sameFile(files_.currentDirectory(), folder_.path()));
  EXPECT_TRUE(files_.fileExists("sub\\a.txt"));
  EXPECT_TRUE(files_.fileExists(".\\sub\\..\\sub/a.txt"));
  EXPECT_EQ(replacing("b.txt"), 0);
  EXPECT_EQ(readFile(folder_ / "b.txt"), "new");
  ::SetCurrentDirectoryW(toWide(before).c_str());
}

TEST(WindowsDrives, TheSystemsDrivesHaveTheirLettersAndRoots) {
  WindowsFiles files;
  const auto drives = files.drives();
  ASSERT_FALSE(drives.empty());
  char before = 0;
  bool systemDrive = false;
  for (const Drive& drive : drives) {
    EXPECT_LT(before, drive.letter);
    before = drive.letter;
    EXPECT_EQ(drive.root, std::string(1, drive.letter) + ":\\");
    EXPECT_TRUE(files.isRootFolder(drive.root));
    if (drive.letter == 'C') systemDrive = drive.ready && drive.type == DriveType::fixed;
  }
  EXPECT_TRUE(systemDrive);
  EXPECT_EQ(files.shortFolderPath("C:\\"), "C:\\");
  EXPECT_EQ(files.folderOf("C:\\a"), "C:\\");
}

// The drives of scripts/with-wine.
TEST(WindowsDrives, EachKindOfDriveIsRecognised) {
  WindowsFiles files;
  std::map<char, Drive> drives;
  for (const Drive& drive : files.drives()) drives[drive.letter] = drive;
  if (drives['K'].type != DriveType::cdrom || drives['Q'].type != DriveType::cdrom) {
    GTEST_SKIP() << "this machine does not have the drives of scripts/with-wine";
  }
  EXPECT_TRUE(drives['K'].ready);
  EXPECT_EQ(drives['N'].type, DriveType::network);
  EXPECT_EQ(drives['R'].type, DriveType::removable);
  EXPECT_FALSE(drives['Q'].ready);
  const auto errorOf = [](const std::function<void()>& call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  };
  EXPECT_EQ(errorOf([&] { files.contents("Q:\\"); }), 71);
  EXPECT_EQ(errorOf([&] { files.openForReading("Q:\\a.mp3"); }), 71);
  EXPECT_EQ(errorOf([&] { replaceWhole(files, "Q:\\a.m3u", "x", Force::no); }), 71);
  EXPECT_TRUE(files.isRootFolder("K:\\"));
}

TEST(WindowsDrives, ANamedDriveMayBeAnyFolder) {
  const TemporaryFolder folder;
  makeFolders(folder / "m");
  WindowsFiles files(std::vector<DriveRoot>{{'M', DriveType::network, folder / "m" + "\\"}});
  ASSERT_EQ(files.drives().size(), 1U);
  EXPECT_EQ(files.drives()[0].root, folder / "m");
  EXPECT_TRUE(files.isRootFolder(folder / "M"));
  EXPECT_FALSE(files.isRootFolder(folder.path()));
}

}  // namespace
}  // namespace plimo
