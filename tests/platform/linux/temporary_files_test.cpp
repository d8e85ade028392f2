#include "platform/linux/temporary_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "platform/linux/atomic_file.h"
#include "platform/linux/linux_files.h"
#include "support/linux/permissions.h"
#include "support/temporary_folder.h"
#include "support/test_program.h"

namespace plimo {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

class TemporaryFilesTest : public testing::Test {
 protected:
  Names names() const {
    Names all;
    for (const auto& entry : fs::directory_iterator(folder_.path())) all.insert(entry.path().filename());
    return all;
  }

  // As a process does that is killed while it writes. Returns the file's name.
  std::string leaveBehind() {
    const Names before = names();
    const pid_t process = ::fork();
    if (process == 0) {
      AtomicFile file(AtomicFile::Mode::hidden);
      ::_exit(file.create(folder_ / "song.mp3") && file.write("half") ? 0 : 1);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
    for (const std::string& name : names()) {
      if (!before.contains(name)) return name;
    }
    ADD_FAILURE() << "nothing was left";
    return {};
  }

  TemporaryFolder folder_;
  LinuxFiles files_{std::vector<DriveRoot>{}};
};

TEST_F(TemporaryFilesTest, ALeftoverIsRemovedOnRequest) {
  leaveBehind();
  files_.removeLeftovers(folder_.path());
  EXPECT_EQ(names(), Names{});
  files_.removeLeftovers(folder_ / "missing");
}

TEST_F(TemporaryFilesTest, ALeftoverThatMayNotBeReadIsRemoved) {
  const UnprivilegedUser user;
  const TemporaryFolder folder;
  for (const unsigned mode : {0444U, 0200U}) {
    writeFile(folder / ".plimo-1-0.tmp", "half");
    changeMode(folder / ".plimo-1-0.tmp", mode);
    files_.removeLeftovers(folder.path());
    EXPECT_TRUE(fs::is_empty(folder.path())) << mode;
  }
}

TEST_F(TemporaryFilesTest, ALeftoverInTheProgramsFolderIsRemovedAtItsStart) {
  leaveBehind();
  writeFile(folder_ / "plimo.ini", settingsText({}));
  FakePlayer player;
  TestDialogs dialogs;
  FakeLauncher launcher(files_);
  QuietProgress progress;
  Program program(Platform{files_, player, dialogs, launcher, progress});
  const fs::path before = fs::current_path();
  fs::current_path(folder_.path());
  program.start();
  fs::current_path(before);
  EXPECT_EQ(names(), Names{"plimo.ini"});
}

TEST_F(TemporaryFilesTest, ALeftoverIsRemovedWhenTheNextHiddenFileIsMade) {
  const std::string left = leaveBehind();
  AtomicFile file(AtomicFile::Mode::hidden);
  ASSERT_TRUE(file.create(folder_ / "song.mp3"));
  EXPECT_FALSE(names().contains(left));
  EXPECT_EQ(names().size(), 1U);
}

TEST_F(TemporaryFilesTest, ALeftoverIsRemovedWhenAFileIsReplaced) {
  leaveBehind();
  replaceWhole(files_, folder_ / "plimo.ini", "new", Force::own);
  EXPECT_EQ(names(), Names{"plimo.ini"});
}

TEST_F(TemporaryFilesTest, AFileInUseIsNotRemoved) {
  AtomicFile first(AtomicFile::Mode::hidden);
  ASSERT_TRUE(first.create(folder_ / "a"));
  const Names inUse = names();
  ASSERT_EQ(inUse.size(), 1U);
  files_.removeLeftovers(folder_.path());
  EXPECT_EQ(names(), inUse);
  const pid_t other = ::fork();
  if (other == 0) {
    files_.removeLeftovers(folder_.path());
    ::_exit(0);
  }
  ::waitpid(other, nullptr, 0);
  EXPECT_EQ(names(), inUse);
  EXPECT_TRUE(first.renameReplace());
}

TEST_F(TemporaryFilesTest, NothingElseIsRemoved) {
  const Names others = {".plimo",          ".plimo-1-0.tmp.mp3", ".plimo-1-.tmp", ".plimo--0.tmp", ".plimo-a-0.tmp",
                        ".plimo-1-0-.tmp", "plimo-1-0.tmp",      ".plimo-1.tmp",  ".plimo-.tmp",   "x.plimo-1-0.tmp"};
  for (const std::string& name : others) writeFile(folder_ / name, "mine");
  Names expected = others;
  makeFolders(folder_ / ".plimo-1-1.tmp");
  ASSERT_EQ(::mkfifo((folder_ / ".plimo-1-2.tmp").c_str(), 0600), 0);
  fs::create_symlink(".plimo", folder_ / ".plimo-1-3.tmp");
  for (const char* name : {".plimo-1-1.tmp", ".plimo-1-2.tmp", ".plimo-1-3.tmp"}) expected.insert(name);
  files_.removeLeftovers(folder_.path());
  EXPECT_EQ(names(), expected);
}

TEST_F(TemporaryFilesTest, TheFileOfAnotherUserIsNotRemoved) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can show this";
  writeFile(folder_ / ".plimo-1-0.tmp", "theirs");
  ASSERT_EQ(::chown((folder_ / ".plimo-1-0.tmp").c_str(), 65534, 65534), 0);
  files_.removeLeftovers(folder_.path());
  EXPECT_EQ(names(), Names{".plimo-1-0.tmp"});
}

}  // namespace
}  // namespace plimo
