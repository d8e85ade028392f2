// Long work on a second thread, while the window goes on.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "base/errors.h"
#include "desktop/shell/progress.h"
#include "desktop/shell/responsive_files.h"
#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"
#include "support/window/list_commands.h"

namespace plimo {
namespace {

TEST(BackgroundWork, LetsTheEventLoopTurn) {
  InputBlocker blocker;
  DesktopProgress progress(blocker);
  std::atomic<int> ticks{0};
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
  timer.start(1);
  bool blocked = false;
  QTimer::singleShot(1, [&] { blocked = blocker.isBlocked(); });
  progress.runInBackground([&ticks] {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (ticks < 3 && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
  });
  EXPECT_GE(ticks, 3);
  EXPECT_TRUE(blocked);
  EXPECT_FALSE(blocker.isBlocked());
}

TEST(BackgroundWork, ThrowsWhatTheWorkThrows) {
  InputBlocker blocker;
  DesktopProgress progress(blocker);
  EXPECT_THROW(progress.runInBackground([] { throw RuntimeError(ErrorNumber::diskFull); }), RuntimeError);
  EXPECT_FALSE(blocker.isBlocked());
}

TEST(BackgroundWork, RunsWorkInsideItAtOnce) {
  InputBlocker blocker;
  DesktopProgress progress(blocker);
  std::thread::id outer;
  std::thread::id inner;
  progress.runInBackground([&] {
    outer = std::this_thread::get_id();
    progress.runInBackground([&] { inner = std::this_thread::get_id(); });
  });
  EXPECT_EQ(inner, outer);
  EXPECT_NE(outer, std::this_thread::get_id());
}

// A click by an assistive tool is no input event, so nothing else holds it back.
TEST(BackgroundWork, NoButtonStartsACommandInTheMiddleOfAnother) {
  SampleLibrary library;
  library.songs = 1000;
  library.folders = library.songs / songsPerArtist;
  const TemporaryFolder folder;
  prepareListCommands(library, folder.path());
  ResponsiveFiles files(std::make_shared<LinuxFiles>(std::vector<DriveRoot>{{'M', DriveType::fixed, "/srv"}}));
  std::size_t during = 0;
  std::size_t after = 1;
  runInWindow(files, [&](WindowFixture& fixture) {
    UiDriver& driver = fixture.driver;
    if (!driver.waitUntil([&] { return driver.isVisible("List2"); })) throw std::runtime_error("no lists");
    Form1& form = fixture.form();
    form.Command13.userClick();
    driver.click("Picture2");
    auto& clear = dynamic_cast<QAbstractButton&>(driver.find("Command9"));
    form.dispatcher().run([&] { clear.click(); });
    during = form.List1.count();
    clear.click();
    after = form.List1.count();
  });
  EXPECT_EQ(during, library.songs);
  EXPECT_EQ(after, 0U);
}

}  // namespace
}  // namespace plimo
