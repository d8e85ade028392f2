// Deleting, renaming and copying with the whole program, without a window, in a folder of the real file system.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fileops/real_program.h"
#include "platform/linux/linux_files.h"
#include "platform/native_backend.h"
#include "support/linux/permissions.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

namespace fs = std::filesystem;
using Files = std::vector<std::string>;

class RealFolder : public testing::Test {
 protected:
  RealFolder() : files_(std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}), program_(files_, home()) {
    makeFolders(music());
    makeFolders(out());
  }

  std::string home() const { return folder_ / "home"; }
  std::string music() const { return folder_ / "music"; }
  std::string out() const { return folder_ / "out"; }

  // Makes a song file whose content is its name.
  std::string song(const std::string& name) {
    std::string path = music() + "/" + name;
    writeFile(path, name);
    return path;
  }

  static Files namesIn(const std::string& folder) {
    Files names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  static std::string content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  static void expectReport(RealProgram& program, const std::string& start) {
    ASSERT_EQ(program.dialogs.reports.size(), 1U);
    EXPECT_EQ(program.dialogs.reports[0].substr(0, start.size()), start);
  }

  UnprivilegedUser user_;
  TemporaryFolder folder_;
  LinuxFiles files_;
  RealProgram program_;
};

struct OddName {
  const char* label;
  std::string name;
};

const OddName oddNames[] = {
    {"InvalidUtf8", "caf\xE9 \xFF - danse \xFE.mp3"},
    {"Quotes", R"(The "Quiet" Ones - Say "Hello".mp3)"},
    {"Commas", "Marlow, Reed & Sons - Rain, Rain,.mp3"},
    {"LongestName", "A - " + std::string(247, 'x') + ".mp3"},
    {"LineBreak", "A - two\r\nlines.mp3"},
    {"SeparatorsOfOtherSystems", "A - b\\c:d*?|<>.mp3"},
    {"Blanks", "  A -   b  .mp3"},
    {"LeadingDash", "-rf *.mp3"},
    {"Hidden", ".A - b.mp3"},
};

class OddlyNamed : public RealFolder, public testing::WithParamInterface<OddName> {
 protected:
  OddlyNamed() {
    path_ = song(GetParam().name);
    program_.startWith({path_, song("B - other.mp3")});
  }

  std::string path_;
};

INSTANTIATE_TEST_SUITE_P(Song, OddlyNamed, testing::ValuesIn(oddNames),
                         [](const auto& odd) { return std::string(odd.param.label); });

TEST_P(OddlyNamed, IsDeleted) {
  const std::size_t first[] = {0};
  program_.form().List1.userSelect(first);
  program_.deleteSelected();
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(music()), Files{"B - other.mp3"});
}

TEST_P(OddlyNamed, IsRenamed) {
  program_.rename("New");
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(music()), (Files{"B - other.mp3", "New.mp3"}));
  EXPECT_EQ(content(music() + "/New.mp3"), GetParam().name);
}

TEST_P(OddlyNamed, IsTheNameOfARenamedSong) {
  program_.form().List1.setCurrent(1);
  fs::remove(path_);
  program_.rename(GetParam().name.substr(0, GetParam().name.size() - 4));
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(music()), Files{GetParam().name});
  EXPECT_EQ(content(path_), "B - other.mp3");
}

TEST_P(OddlyNamed, IsCopied) {
  program_.copyTo(out());
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(out()), namesIn(music()));
  EXPECT_EQ(content(out() + "/" + GetParam().name), GetParam().name);
}

TEST_F(RealFolder, ARenamedAndACopiedSongKeepTheirTimeAndPermissions) {
  const std::string path = song("A - b.mp3");
  changeMode(path, 0640);
  const timespec times[] = {{1000000000, 5}, {1100000000, 7}};
  ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  program_.startWith({path});
  program_.copyTo(out());
  program_.rename("New");
  for (const std::string& kept : {out() + "/A - b.mp3", music() + "/New.mp3"}) {
    struct stat status {};
    ASSERT_EQ(::stat(kept.c_str(), &status), 0) << kept;
    EXPECT_EQ(status.st_mtim.tv_sec, 1100000000);
    EXPECT_EQ(status.st_mtim.tv_nsec, 7);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
  }
}

TEST_F(RealFolder, RenamingASongToItsOwnNameIsRefused) {
  program_.startWith({song("A - b.mp3")});
  program_.rename("A - b");
  expectReport(program_, "Run-time error '70'");
  EXPECT_EQ(content(music() + "/A - b.mp3"), "A - b.mp3");
  EXPECT_EQ(program_.form().List1.count(), 1U);
}

TEST_F(RealFolder, AnotherCaseIsAnotherName) {
  program_.startWith({song("A - b.MP3")});
  program_.rename("a - B");
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(music()), Files{"a - B.mp3"});
}

TEST_F(RealFolder, ASongIsNotRenamedOntoALinkToItself) {
  const std::string path = song("A - b.mp3");
  fs::create_hard_link(path, music() + "/twin.mp3");
  fs::create_symlink("A - b.mp3", music() + "/link.mp3");
  program_.startWith({path});
  for (const char* name : {"twin", "link"}) {
    program_.rename(name);
    expectReport(program_, "Run-time error '70'");
    program_.dialogs.reports.clear();
    EXPECT_EQ(content(path), "A - b.mp3");
  }
}

TEST_F(RealFolder, ANameThatTheFileSystemRefusesIsReported) {
  program_.startWith({song("A - b.mp3")});
  for (const std::string& name : {std::string("sub/b"), std::string("/b"), std::string("b/"), std::string(252, 'x')}) {
    program_.rename(name);
    expectReport(program_, "Run-time error '52'");
    program_.dialogs.reports.clear();
    EXPECT_EQ(namesIn(music()), Files{"A - b.mp3"});
    EXPECT_EQ(program_.form().List1.count(), 1U);
  }
  program_.rename(std::string(251, 'x'));
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(music()), Files{std::string(251, 'x') + ".mp3"});
}

TEST_F(RealFolder, AFolderIsNeverReplacedByASong) {
  makeFolders(music() + "/New.mp3");
  makeFolders(out() + "/A - b.mp3");
  program_.startWith({song("A - b.mp3"), song("A - c.mp3")});
  program_.copyTo(out());
  EXPECT_EQ(namesIn(out()), (Files{"A - b.mp3", "A - c.mp3"}));
  EXPECT_TRUE(fs::is_directory(out() + "/A - b.mp3"));
  program_.rename("New");
  expectReport(program_, "Run-time error '70'");
  EXPECT_EQ(content(music() + "/A - b.mp3"), "A - b.mp3");
  EXPECT_TRUE(fs::is_directory(music() + "/New.mp3"));
}

TEST_F(RealFolder, AReadOnlySongIsNotDeletedAndStaysBesideItsRenamedCopy) {
  const std::string path = song("A - b.mp3");
  changeMode(path, 0444);
  program_.startWith({path, song("A - c.mp3")});
  program_.deleteSelected();
  EXPECT_EQ(program_.dialogs.messages, Files{"The File(s) could not be deleted due to some mysterical problem!"});
  EXPECT_EQ(namesIn(music()), (Files{"A - b.mp3", "A - c.mp3"}));
  program_.rename("New");
  expectReport(program_, "Run-time error '70'");
  EXPECT_EQ(namesIn(music()), (Files{"A - b.mp3", "A - c.mp3", "New.mp3"}));
  EXPECT_EQ(content(music() + "/New.mp3"), "A - b.mp3");
}

TEST_F(RealFolder, AMissingSongIsReportedOrSkipped) {
  const Files songs{song("A - b.mp3"), song("A - c.mp3"), song("A - d.mp3")};
  program_.startWith(songs);
  fs::remove(songs[1]);
  program_.copyTo(out());
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(out()), (Files{"A - b.mp3", "A - d.mp3"}));
  program_.deleteSelected();
  EXPECT_EQ(program_.dialogs.messages.size(), 1U);
  EXPECT_EQ(namesIn(music()), Files{"A - d.mp3"});
  program_.rename("New");
  expectReport(program_, "Run-time error '53'");
  EXPECT_EQ(namesIn(music()), Files{"A - d.mp3"});
}

// Limits the size of files during its lifetime; the program sees a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &usual_);
    const rlimit small{bytes, usual_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &usual_);
    std::signal(SIGXFSZ, before_);
  }

 private:
  rlimit usual_{};
  void (*before_)(int);
};

TEST_F(RealFolder, ACopyWithoutRoomIsRemovedAndARenameNeedsNone) {
  const std::string large(100000, 'x');
  const std::string path = song("A - large.mp3");
  writeFile(path, large);
  program_.startWith({path, song("A - small.mp3")});
  {
    const FileSizeLimit limit(50000);
    program_.copyTo(out());
    EXPECT_FALSE(program_.dialogs.hasMessageOrReport()) << "the other songs are copied";
    program_.rename("New");
  }
  EXPECT_EQ(namesIn(out()), Files{"A - small.mp3"});
  EXPECT_FALSE(program_.dialogs.hasMessageOrReport());
  EXPECT_EQ(namesIn(music()), (Files{"A - small.mp3", "New.mp3"}));
  EXPECT_EQ(content(music() + "/New.mp3"), large);
}

TEST(RealFullDisk, ASongIsRenamed) {
  NativeBackend backend;
  std::string failure;
  const bool shown = backend.onFullDisk(
      [&](FileSystemObject& files, const std::string& folder) -> std::string {
        fs::rename(folder + "/filler", folder + "/A - b.mp3");
        const std::uint64_t size = files.fileSize(folder + "/A - b.mp3");
        const std::string home = backend.root() + "/home";
        makeFolders(home);
        RealProgram program(files, home);
        program.startWith({folder + "/A - b.mp3"});
        program.rename("New");
        if (!program.dialogs.reports.empty()) return program.dialogs.reports[0];
        if (files.contents(folder).files != Files{"New.mp3", "old"}) return "there are other files";
        return files.fileSize(folder + "/New.mp3") == size ? "" : "the song has changed";
      },
      failure);
  if (!shown) GTEST_SKIP() << "no small disk can be made here";
  EXPECT_EQ(failure, "");
}

}  // namespace
}  // namespace plimo
