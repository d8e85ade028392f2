// Calls that a disk holds up, on the machine in memory.
#include "desktop/shell/responsive_files.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "platform/memory/fake_file_system.h"

namespace plimo {
namespace {

// Calls on D: are held up until the test releases them.
class HeldUpFiles : public FakeFileSystem {
 public:
  void release() {
    released_ = true;
    released_.notify_all();
  }
  bool fileExists(std::string_view path) override {
    holdUp(path);
    return FakeFileSystem::fileExists(path);
  }
  std::unique_ptr<FileView> openForReading(std::string_view path) override {
    holdUp(path);
    return FakeFileSystem::openForReading(path);
  }
  bool copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) override {
    if (!progress(1, 4)) return false;
    holdUp(to);
    return progress(2, 4) && FakeFileSystem::copyFile(from, to, overwrite, progress);
  }
  std::atomic<int> ended = 0;

 private:
  void holdUp(std::string_view path) {
    if (!path.starts_with("D:")) return;
    released_.wait(false);
    ++ended;
  }

  std::atomic<bool> released_ = false;
};

class ResponsiveFilesTest : public testing::Test {
 protected:
  ResponsiveFilesTest() {
    files_.waiting = [this](std::chrono::milliseconds) { return ++waits_ < giveUpAt_; };
    files_.waited = [this] { ++ends_; };
  }
  ~ResponsiveFilesTest() override { held_->release(); }

  std::shared_ptr<HeldUpFiles> held_ = std::make_shared<HeldUpFiles>();
  ResponsiveFiles files_{held_};
  int giveUpAt_ = 2;
  int waits_ = 0;
  int ends_ = 0;
};

TEST_F(ResponsiveFilesTest, ACallThatAnswersIsTheCallItself) {
  EXPECT_FALSE(files_.fileExists("C:\\x.mp3"));
  try {
    files_.openForReading("C:\\x.mp3");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.path(), "C:\\x.mp3");
    EXPECT_NE(error.number(), ErrorNumber::diskNotReady);
  }
}

TEST_F(ResponsiveFilesTest, ReadingThatIsGivenUpThrowsThatTheDiskIsNotReady) {
  try {
    files_.openForReading("D:\\x.m3u");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::diskNotReady);
    EXPECT_EQ(error.path(), "D:\\x.m3u");
  }
  EXPECT_EQ(waits_, 2);
  EXPECT_EQ(ends_, 1);
  EXPECT_FALSE(files_.fileExists("C:\\x.mp3")) << "the next call has to answer";
}

TEST_F(ResponsiveFilesTest, AFileThatIsGivenUpDoesNotExist) {
  EXPECT_FALSE(files_.fileExists("D:\\x.m3u"));
  EXPECT_EQ(ends_, 1);
}

TEST_F(ResponsiveFilesTest, ACallGoesOnWhenTheDiskAnswers) {
  giveUpAt_ = 1000;
  files_.waiting = [this](std::chrono::milliseconds) {
    if (++waits_ == 2) held_->release();
    return true;
  };
  EXPECT_FALSE(files_.fileExists("D:\\x.m3u"));
  EXPECT_EQ(held_->ended, 1);
  EXPECT_EQ(ends_, 1);
}

TEST_F(ResponsiveFilesTest, AWaitThatThrowsEndsTheCall) {
  files_.waiting = [](std::chrono::milliseconds) -> bool { throw RuntimeError(ErrorNumber::outOfMemory); };
  EXPECT_THROW(files_.fileExists("D:\\x.m3u"), RuntimeError);
  EXPECT_EQ(ends_, 1);
}

TEST_F(ResponsiveFilesTest, ACopyReportsItsProgressAndEndsWhenItIsCancelled) {
  giveUpAt_ = 1000;
  std::uint64_t copied = 0;
  EXPECT_FALSE(files_.copyFile("C:\\x.mp3", "D:\\x.mp3", false, [&](std::uint64_t bytes, std::uint64_t size) {
    copied = bytes;
    EXPECT_EQ(size, 4U);
    return false;
  }));
  EXPECT_EQ(copied, 1U);
  held_->release();
  while (held_->ended < 1) std::this_thread::yield();
  EXPECT_FALSE(held_->FakeFileSystem::fileExists("D:\\x.mp3")) << "the copy has to be cancelled";
}

}  // namespace
}  // namespace plimo
