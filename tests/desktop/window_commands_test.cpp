// Whole sessions in the real window.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "desktop/shell/responsive_files.h"
#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"
#include "support/window/list_commands.h"
#include "support/window/progress_commands.h"

namespace plimo {
namespace {

TEST(WindowCommands, EveryListCommandHasItsEffect) {
  SampleLibrary library;
  library.songs = 10'000;
  library.folders = library.songs / songsPerArtist;
  const TemporaryFolder folder;
  prepareListCommands(library, folder.path());
  ResponsiveFiles files(std::make_shared<LinuxFiles>(std::vector<DriveRoot>{{'M', DriveType::fixed, "/srv"}}));
  const std::vector<CommandResult> results =
      runInWindow(files, [&](WindowFixture& fixture) { runListCommands(fixture, library, folder.path()); });
  EXPECT_GE(results.size(), 28U);
  for (const CommandResult& result : results) EXPECT_TRUE(result.done) << result.command;
}

// A disk on which every song takes at least a fixed time.
class SlowFiles : public LinuxFiles {
 public:
  static constexpr int msPerSong = 5;

  explicit SlowFiles(const std::string& music) : LinuxFiles({DriveRoot{'M', DriveType::fixed, music}}) {}

  bool walk(std::string_view folder, int depth, const WalkVisitor& visitor) override {
    WalkVisitor slow = visitor;
    slow.found = [this, &visitor](std::string_view path) {
      processOne();
      return visitor.found(path);
    };
    return LinuxFiles::walk(folder, depth, slow);
  }
  void deleteFile(std::string_view path, Force force) override {
    processOne();
    LinuxFiles::deleteFile(path, force);
  }
  bool copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) override {
    processOne();
    return LinuxFiles::copyFile(from, to, overwrite, progress);
  }

  std::size_t processed = 0;

 private:
  void processOne() {
    ++processed;
    std::this_thread::sleep_for(std::chrono::milliseconds(msPerSong));
  }
};

// Counted in songs, not in time: a song never takes less than its time, however busy the machine is, so that a progress
// panel that is due after some milliseconds is repainted after a bounded number of songs.
TEST(WindowCommands, ProgressIsRepaintedWhileSongsAreProcessed) {
  constexpr std::size_t songs = 100;
  constexpr int panelDelayMs = 200;
  constexpr int repaintIntervalMs = 100;
  constexpr int pollIntervalMs = 40;  // at which the program processes events; a repaint may be late by two of them
  constexpr std::size_t tolerance = 2 * pollIntervalMs / SlowFiles::msPerSong + 2;
  const TemporaryFolder folder;
  prepareProgressCommands(songs, folder.path(), 1000);
  SlowFiles files(musicFolder(folder.path()));
  std::vector<ProgressSample> samples;
  runInWindow(files, [&](WindowFixture& fixture) {
    samples = runProgressCommands(fixture, songs, folder.path(), true, &files.processed);
  });
  ASSERT_EQ(samples.size(), 4U);
  for (const ProgressSample& sample : samples) {
    SCOPED_TRACE(sample.result.command);
    EXPECT_TRUE(sample.result.done);
    EXPECT_GE(sample.repaints, 2U);
    EXPECT_LE(sample.filesUnseen, panelDelayMs / SlowFiles::msPerSong + tolerance);
    EXPECT_LE(sample.filesBetween, repaintIntervalMs / SlowFiles::msPerSong + tolerance);
  }
}

}  // namespace
}  // namespace plimo
