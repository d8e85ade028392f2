// Deleting, renaming and copying with the whole program, without a window, in a folder of a Windows disk.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "fileops/real_program.h"
#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_files.h"
#include "support/temporary_folder.h"
#include "support/windows/disk.h"

namespace plimo {
namespace {

using Files = std::vector<std::string>;

class RealWindowsFolder : public testing::Test {
 protected:
  RealWindowsFolder() {
    makeFolders(folder_ / "music");
    makeFolders(folder_ / "out");
  }

  // Makes a song file whose content is its name.
  std::string song(const std::string& name) {
    std::string path = folder_ / "music" + "\\" + name;
    writeFile(path, name);
    return path;
  }

  Files namesIn(const std::string& folder) { return files_.contents(folder_ / folder).files; }

  void expectReport(const std::string& start) {
    ASSERT_EQ(program_.dialogs.reports.size(), 1U);
    EXPECT_EQ(program_.dialogs.reports[0].substr(0, start.size()), start);
    program_.dialogs.reports.clear();
  }

  TemporaryFolder folder_;
  WindowsFiles files_{std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}};
  RealProgram program_{files_, folder_ / "home"};
};

TEST_F(RealWindowsFolder, SongsAreCopiedRenamedAndDeleted) {
  for (const std::string name : {"\u00C4 - \u4E2D\U0001F3B5.mp3", "  A -   b  .mp3", ".A - b.mp3"}) {
    RealProgram program(files_, folder_ / "home");
    program.startWith({song(name)});
    program.copyTo(folder_ / "out");
    EXPECT_EQ(namesIn("out"), Files{name});
    EXPECT_EQ(readFile(folder_ / ("out/" + name)), name);
    files_.deleteFile(folder_ / ("out/" + name), Force::no);
    program.rename("New");
    EXPECT_FALSE(program.dialogs.hasMessageOrReport());
    EXPECT_EQ(namesIn("music"), Files{"New.mp3"});
    EXPECT_EQ(readFile(folder_ / "music/New.mp3"), name);
    RealProgram again(files_, folder_ / "home");
    again.startWith({folder_ / "music/New.mp3"});
    again.deleteSelected();
    EXPECT_FALSE(again.dialogs.hasMessageOrReport());
    EXPECT_EQ(namesIn("music"), Files{});
  }
}

TEST_F(RealWindowsFolder, ANameThatIsReservedOrTooLongIsReported) {
  program_.startWith({song("A - b.mp3")});
  for (const std::string& name :
       {std::string("NUL"), std::string("com1"), std::string("a:b"), std::string("a?"), std::string(252, 'x')}) {
    program_.rename(name);
    expectReport("Run-time error '52'");
    EXPECT_EQ(namesIn("music"), Files{"A - b.mp3"});
  }
}

TEST_F(RealWindowsFolder, AnotherCaseIsTheSameName) {
  program_.startWith({song("A - b.MP3")});
  program_.rename("a - B");
  expectReport("Run-time error '70'");
  EXPECT_EQ(namesIn("music"), Files{"A - b.MP3"});
}

TEST_F(RealWindowsFolder, ASongThatAnotherProgramHasOpenIsNotDeleted) {
  const std::string path = song("A - b.mp3");
  program_.startWith({path});
  const UniqueHandle player(
      ::CreateFileW(nativePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  program_.deleteSelected();
  EXPECT_EQ(program_.dialogs.messages, Files{"The File(s) could not be deleted due to some mysterical problem!"});
  EXPECT_EQ(namesIn("music"), Files{"A - b.mp3"});
}

TEST_F(RealWindowsFolder, AReadOnlySongIsNotDeletedAndStaysBesideItsRenamedCopy) {
  const std::string path = song("A - b.mp3");
  setAttributes(path, FILE_ATTRIBUTE_READONLY);
  program_.startWith({path, song("A - c.mp3")});
  program_.rename("New");
  expectReport("Run-time error '70'");
  EXPECT_EQ(namesIn("music"), (Files{"A - b.mp3", "A - c.mp3", "New.mp3"}));
}

}  // namespace
}  // namespace plimo
