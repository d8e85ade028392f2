// What is specific to Linux: names as bytes, links, pipes, permissions.
#include "platform/linux/linux_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <thread>

#include "support/linux/permissions.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class LinuxFilesTest : public testing::Test {
 protected:
  LinuxFilesTest() : files_(std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}) {}

  Names songs() {
    Names paths;
    files_.walk(
        folder_.path(), 10, [](std::string_view name) { return name.ends_with("mp3"); },
        [&](std::string_view path) {
          paths.emplace_back(path.substr(folder_.path().size() + 1));
          return true;
        });
    return paths;
  }

  unsigned modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
  }

  int errorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  }

  TemporaryFolder folder_;
  LinuxFiles files_;
};

TEST_F(LinuxFilesTest, ANameThatIsNotUtf8IsHandledByEveryOperation) {
  const std::string name = "caf\xE9 \xFF\n.mp3";
  writeFile(folder_ / name, "x");
  EXPECT_EQ(files_.contents(folder_.path()).files, Names{name});
  EXPECT_EQ(songs(), Names{name});
  EXPECT_EQ(files_.openForReading(folder_ / name)->bytes(), "x");
  files_.copyFile(folder_ / name, folder_ / ("2" + name), false, {});
  files_.deleteFile(folder_ / name, Force::no);
  EXPECT_EQ(songs(), Names{"2" + name});
}

TEST_F(LinuxFilesTest, NamesThatDifferInCaseAreTwoFilesOrderedByBytes) {
  for (const char* name : {"a.mp3", "A.mp3", "B.mp3", "b.mp3"}) writeFile(folder_ / name, "");
  EXPECT_EQ(songs(), (Names{"A.mp3", "a.mp3", "B.mp3", "b.mp3"}));
  EXPECT_FALSE(files_.sameFile(folder_ / "a.mp3", folder_ / "A.mp3"));
}

TEST_F(LinuxFilesTest, APipeIsNotAFileAndIsNeverOpened) {
  ASSERT_EQ(::mkfifo((folder_ / "x.mp3").c_str(), 0600), 0);
  EXPECT_EQ(songs(), Names{});
  EXPECT_EQ(files_.contents(folder_.path()).files, Names{});
  EXPECT_FALSE(files_.fileExists(folder_ / "x.mp3"));
  EXPECT_EQ(errorOf([&] { files_.openForReading(folder_ / "x.mp3"); }), 75);
  EXPECT_EQ(errorOf([&] { files_.replaceFile(folder_ / "x.mp3", Force::yes); }), 75);
  EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "x.mp3", folder_ / "y.mp3", false, {}); }), 53);
  EXPECT_EQ(errorOf([&] { files_.deleteFile(folder_ / "x.mp3", Force::yes); }), 53);
}

TEST_F(LinuxFilesTest, AWalkFollowsLinksToFilesButNotToFolders) {
  writeFile(folder_ / "f/a.mp3", "");
  fs::create_symlink(folder_ / "f/a.mp3", folder_ / "link.mp3");
  fs::create_symlink(folder_ / "f", folder_ / "folder");
  fs::create_symlink("..", folder_ / "f/up");
  fs::create_symlink("self.mp3", folder_ / "self.mp3");
  fs::create_symlink("nowhere", folder_ / "broken.mp3");
  fs::create_symlink("f", folder_ / "folder.mp3");
  EXPECT_EQ(songs(), (Names{"link.mp3", "f/a.mp3"}));
  EXPECT_EQ(files_.contents(folder_.path()).folders, (Names{"f", "folder", "folder.mp3"}));
  EXPECT_EQ(files_.contents(folder_.path()).files, Names{"link.mp3"});
}

TEST_F(LinuxFilesTest, ADriveWhoseRootCannotBeCheckedIsReady) {
  const UnprivilegedUser user;
  const TemporaryFolder parent;
  makeFolders(parent / "root");
  changeMode(parent.path(), 0);
  LinuxFiles files(std::vector<DriveRoot>{{'C', DriveType::fixed, parent / "root"}});
  EXPECT_TRUE(files.drives()[0].ready);
}

TEST_F(LinuxFilesTest, ADriveIsReadyIfItsRootIsAFolder) {
  const UnprivilegedUser user;
  const TemporaryFolder folder;
  makeFolders(folder / "closed");
  changeMode(folder / "closed", 0);
  writeFile(folder / "file", "");
  LinuxFiles files(std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()},
                                          {'D', DriveType::fixed, folder / "closed"},
                                          {'E', DriveType::fixed, folder / "file"},
                                          {'F', DriveType::fixed, folder / "missing"}});
  std::string ready;
  for (const Drive& drive : files.drives()) ready += drive.ready ? drive.letter : '-';
  EXPECT_EQ(ready, "CD--");
  EXPECT_EQ(errorOf([&] { files.contents(folder / "closed"); }), 70);
  EXPECT_EQ(errorOf([&] { files.contents(folder / "missing"); }), 71);
}

TEST_F(LinuxFilesTest, LostAndFoundIsHiddenOnlyInADrivesRoot) {
  writeFile(folder_ / "lost+found/a.mp3", "");
  writeFile(folder_ / "f/lost+found/b.mp3", "");
  EXPECT_EQ(songs(), Names{"f/lost+found/b.mp3"});
  EXPECT_EQ(files_.contents(folder_.path()).folders, Names{"f"});
  EXPECT_EQ(files_.contents(folder_ / "f").folders, Names{"lost+found"});
}

TEST_F(LinuxFilesTest, AReplacementKeepsTheOldFilesPermissions) {
  writeFile(folder_ / "x", "old");
  changeMode(folder_ / "x", 0640);
  replaceWhole(files_, folder_ / "x", "new", Force::no);
  EXPECT_EQ(modeOf(folder_ / "x"), 0640U);
  changeMode(folder_ / "x", 0440);
  replaceWhole(files_, folder_ / "x", "newer", Force::yes);
  EXPECT_EQ(modeOf(folder_ / "x"), 0640U);
}

TEST_F(LinuxFilesTest, ANewFileHasThePermissionsOfTheUmask) {
  const mode_t mask = ::umask(027);
  replaceWhole(files_, folder_ / "x", "new", Force::no);
  ::umask(mask);
  EXPECT_EQ(modeOf(folder_ / "x"), 0640U);
}

TEST_F(LinuxFilesTest, ReplacingThroughALinkKeepsTheLink) {
  writeFile(folder_ / "f/real", "old");
  fs::create_symlink("f/real", folder_ / "link");
  replaceWhole(files_, folder_ / "link", "new", Force::no);
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_FALSE(fs::is_symlink(folder_ / "f/real"));
  EXPECT_EQ(files_.openForReading(folder_ / "f/real")->bytes(), "new");
  fs::create_symlink("f/fresh", folder_ / "broken");
  replaceWhole(files_, folder_ / "broken", "made", Force::no);
  EXPECT_EQ(files_.openForReading(folder_ / "f/fresh")->bytes(), "made");
  fs::create_symlink("loop", folder_ / "loop");
  EXPECT_EQ(errorOf([&] { files_.replaceFile(folder_ / "loop", Force::yes); }), 75);
}

TEST_F(LinuxFilesTest, AnOwnFileIsNeverWrittenThroughALinkOutOfItsFolder) {
  writeFile(folder_ / "other/thesis", "thesis");
  ASSERT_EQ(::mkfifo((folder_ / "other/pipe").c_str(), 0600), 0);
  makeFolders(folder_ / "own");
  fs::create_symlink("hop", folder_ / "own/chain");
  fs::create_symlink("../other/thesis", folder_ / "own/hop");
  const std::pair<const char*, std::string> links[] = {{"relative", "../other/thesis"},
                                                       {"absolute", folder_ / "other/thesis"},
                                                       {"missing", "../other/new"},
                                                       {"nowhere", "../none/new"},
                                                       {"loop", "loop"},
                                                       {"pipe", "../other/pipe"},
                                                       {"null", "/dev/null"}};
  for (const auto& [name, target] : links) fs::create_symlink(target, folder_ / ("own/" + std::string(name)));
  for (const char* name : {"chain", "relative", "absolute", "missing", "nowhere", "loop", "pipe", "null"}) {
    const std::string file = folder_ / ("own/" + std::string(name));
    replaceWhole(files_, file, "new", Force::own);
    EXPECT_FALSE(fs::is_symlink(file)) << name;
    EXPECT_EQ(files_.openForReading(file)->bytes(), "new");
  }
  EXPECT_EQ(files_.openForReading(folder_ / "other/thesis")->bytes(), "thesis");
  EXPECT_EQ(files_.contents(folder_ / "other").files, Names{"thesis"});
  EXPECT_TRUE(fs::is_symlink(folder_ / "own/hop"));
}

TEST_F(LinuxFilesTest, AnOwnFileIsWrittenThroughALinkInsideItsFolder) {
  writeFile(folder_ / "own/real", "old");
  fs::create_symlink("real", folder_ / "own/link");
  fs::create_symlink("own", folder_ / "door");
  replaceWhole(files_, folder_ / "door/link", "new", Force::own);
  EXPECT_TRUE(fs::is_symlink(folder_ / "own/link"));
  EXPECT_EQ(files_.openForReading(folder_ / "own/real")->bytes(), "new");
}

TEST_F(LinuxFilesTest, DeletingALinkKeepsItsTarget) {
  writeFile(folder_ / "real.mp3", "x");
  changeMode(folder_ / "real.mp3", 0444);
  fs::create_symlink("real.mp3", folder_ / "link.mp3");
  files_.deleteFile(folder_ / "link.mp3", Force::no);
  EXPECT_EQ(songs(), Names{"real.mp3"});
}

TEST_F(LinuxFilesTest, ReadOnlyFilesAreReadOnlyForRootToo) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can show this";
  writeFile(folder_ / "x", "old");
  changeMode(folder_ / "x", 0444);
  writeFile(folder_ / "y", "y");
  EXPECT_EQ(errorOf([&] { files_.replaceFile(folder_ / "x", Force::no); }), 75);
  EXPECT_EQ(errorOf([&] { files_.deleteFile(folder_ / "x", Force::no); }), 70);
  EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "y", folder_ / "x", true, {}); }), 70);
  EXPECT_EQ(files_.openForReading(folder_ / "x")->bytes(), "old");
}

TEST_F(LinuxFilesTest, ACopyKeepsTimeAndPermissions) {
  writeFile(folder_ / "a.mp3", "x");
  changeMode(folder_ / "a.mp3", 0604);
  const timespec times[] = {{1000000000, 5}, {1100000000, 7}};
  ASSERT_EQ(::utimensat(AT_FDCWD, (folder_ / "a.mp3").c_str(), times, 0), 0);
  files_.copyFile(folder_ / "a.mp3", folder_ / "b.mp3", false, {});
  struct stat status {};
  ASSERT_EQ(::stat((folder_ / "b.mp3").c_str(), &status), 0);
  EXPECT_EQ(status.st_mtim.tv_sec, 1100000000);
  EXPECT_EQ(status.st_mtim.tv_nsec, 7);
  EXPECT_EQ(status.st_mode & 07777U, 0604U);
}

TEST_F(LinuxFilesTest, ACopyOntoAnotherNameOfItsOwnFileIsRefused) {
  writeFile(folder_ / "a.mp3", "x");
  fs::create_symlink("a.mp3", folder_ / "link.mp3");
  fs::create_hard_link(folder_ / "a.mp3", folder_ / "hard.mp3");
  for (const char* name : {"link.mp3", "hard.mp3"}) {
    EXPECT_TRUE(files_.sameFile(folder_ / "a.mp3", folder_ / name));
    EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "a.mp3", folder_ / name, true, {}); }), 70);
  }
  EXPECT_EQ(files_.openForReading(folder_ / "a.mp3")->bytes(), "x");
}

TEST_F(LinuxFilesTest, ATargetThatAppearsDuringACopyIsNotOverwritten) {
  writeFile(folder_ / "a.mp3", "x");
  const auto meanwhile = [&](std::uint64_t, std::uint64_t) {
    writeFile(folder_ / "b.mp3", "other");
    return true;
  };
  EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "a.mp3", folder_ / "b.mp3", false, meanwhile); }), 58);
  EXPECT_EQ(files_.openForReading(folder_ / "b.mp3")->bytes(), "other");
  EXPECT_EQ(files_.contents(folder_.path()).files, (Names{"a.mp3", "b.mp3"}));
}

TEST_F(LinuxFilesTest, ALinkIsNotMovedAndALinkedTargetIsReplaced) {
  writeFile(folder_ / "f/real.mp3", "real");
  fs::create_symlink("f/real.mp3", folder_ / "link.mp3");
  EXPECT_FALSE(files_.moveFile(folder_ / "link.mp3", folder_ / "new.mp3"));
  EXPECT_FALSE(fs::exists(folder_ / "new.mp3"));
  writeFile(folder_ / "song.mp3", "song");
  EXPECT_TRUE(files_.moveFile(folder_ / "song.mp3", folder_ / "link.mp3"));
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.mp3"));
  EXPECT_EQ(files_.openForReading(folder_ / "f/real.mp3")->bytes(), "song");
}

TEST_F(LinuxFilesTest, AMoveKeepsTheOtherNamesOfAFile) {
  writeFile(folder_ / "a.mp3", "x");
  fs::create_hard_link(folder_ / "a.mp3", folder_ / "hard.mp3");
  fs::create_symlink("a.mp3", folder_ / "link.mp3");
  for (const char* name : {"link.mp3", "hard.mp3"}) {
    EXPECT_EQ(errorOf([&] { files_.moveFile(folder_ / "a.mp3", folder_ / name); }), 70);
  }
  EXPECT_TRUE(files_.moveFile(folder_ / "a.mp3", folder_ / "b.mp3"));
  EXPECT_EQ(files_.openForReading(folder_ / "hard.mp3")->bytes(), "x");
  EXPECT_EQ(files_.contents(folder_.path()).files, (Names{"b.mp3", "hard.mp3"}));
}

TEST_F(LinuxFilesTest, ASongThatHasBecomeAPipeIsNotMoved) {
  ASSERT_EQ(::mkfifo((folder_ / "a.mp3").c_str(), 0600), 0);
  EXPECT_EQ(errorOf([&] { files_.moveFile(folder_ / "a.mp3", folder_ / "b.mp3"); }), 53);
  EXPECT_EQ(errorOf([&] { files_.copyFile(folder_ / "a.mp3", folder_ / "b.mp3", true, {}); }), 53);
  writeFile(folder_ / "song.mp3", "x");
  EXPECT_EQ(errorOf([&] { files_.moveFile(folder_ / "song.mp3", folder_ / "a.mp3"); }), 70);
  EXPECT_EQ(files_.contents(folder_.path()).files, Names{"song.mp3"});
  EXPECT_FALSE(fs::exists(folder_ / "b.mp3"));
}

// Another program keeps replacing the song by a pipe and back.
TEST_F(LinuxFilesTest, ASongThatBecomesAPipeLeavesNothingEmpty) {
  const std::string song = folder_ / "a.mp3";
  const std::string pipe = folder_ / "pipe";
  writeFile(song, "x");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  std::atomic<bool> stop = false;
  std::thread other([&] {
    while (!stop) ::renameat2(AT_FDCWD, song.c_str(), AT_FDCWD, pipe.c_str(), RENAME_EXCHANGE);
  });
  for (int round = 0; round < 500; ++round) {
    const int error = errorOf([&] { files_.copyFile(song, folder_ / "b.mp3", true, {}); });
    if (error == 53 || (error == 0 && files_.fileSize(folder_ / "b.mp3") == 1)) continue;
    ADD_FAILURE() << "error " << error;
    break;
  }
  stop = true;
  other.join();
}

TEST_F(LinuxFilesTest, AMoveToAnotherFileSystemChangesNothing) {
  const fs::path memory = "/dev/shm";
  struct stat here {};
  struct stat there {};
  if (::stat(folder_.path().c_str(), &here) != 0 || ::stat(memory.c_str(), &there) != 0 ||
      here.st_dev == there.st_dev || ::access(memory.c_str(), W_OK) != 0) {
    GTEST_SKIP() << "there is no second file system here";
  }
  const std::string target = memory / ("plimo-test-" + std::to_string(::getpid()) + ".mp3");
  writeFile(folder_ / "a.mp3", "x");
  EXPECT_FALSE(files_.moveFile(folder_ / "a.mp3", target));
  EXPECT_TRUE(files_.fileExists(folder_ / "a.mp3"));
  EXPECT_FALSE(fs::exists(target));
}

TEST_F(LinuxFilesTest, SlashAndLinksToADrivesRootAreRootFolders) {
  EXPECT_TRUE(files_.isRootFolder("/"));
  EXPECT_TRUE(files_.isRootFolder(folder_.path() + "//"));
  makeFolders(folder_ / "f");
  fs::create_symlink(folder_.path(), folder_ / "f/link");
  EXPECT_TRUE(files_.isRootFolder(folder_ / "f/link"));
  EXPECT_FALSE(files_.isRootFolder(folder_ / "f"));
}

TEST_F(LinuxFilesTest, OnlyASlashIsASeparator) {
  EXPECT_TRUE(files_.holdsSeparator("a/b"));
  EXPECT_FALSE(files_.holdsSeparator("a\\b:c"));
  EXPECT_TRUE(files_.caseSensitive());
  EXPECT_EQ(files_.joinAlwaysSeparated("/", "winamp.exe"), "//winamp.exe");
}

TEST_F(LinuxFilesTest, AFolderOfManyFilesIsListedCompletely) {
  for (int i = 0; i < 5000; ++i)
    writeFile(folder_ / ("a rather long name of a song " + std::to_string(i) + ".mp3"), "");
  const Names paths = songs();
  EXPECT_EQ(paths.size(), 5000U);
  EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end()));
}

}  // namespace
}  // namespace plimo
