// Walks through trees with many folders, which are partly prefetched.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <thread>

#include "platform/linux/linux_files.h"
#include "support/linux/permissions.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

bool isSong(std::string_view name) { return name.ends_with("mp3"); }

// The next free file descriptor: higher if one was leaked.
int nextDescriptor() {
  const int next = ::dup(STDIN_FILENO);
  ::close(next);
  return next;
}

// Fifty folders with three subfolders of two songs each. The first ones contain many songs, so that the walk takes
// longer there and the prefetching gets ahead.
class LinuxWalkTest : public testing::Test {
 protected:
  LinuxWalkTest() : files_(std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}) {
    for (int outer = 10; outer < 60; ++outer) {
      const std::string artist = folder_ / ("artist " + std::to_string(outer));
      for (int inner = 10; inner < 13; ++inner) {
        const std::string album = artist + "/album " + std::to_string(inner);
        fs::create_directories(album);
        for (int song = 10; song < 12; ++song) writeFile(album + "/" + std::to_string(song) + ".mp3", "");
      }
    }
    for (int song = 1000; song < 1300; ++song) {
      writeFile(folder_ / ("artist 10/" + std::to_string(song) + ".mp3"), "");
      writeFile(folder_ / ("artist 10/album 10/" + std::to_string(song) + ".mp3"), "");
    }
    collect(folder_.path());
  }

  // Collects the expected result of a walk from listings of single folders.
  void collect(const std::string& folder) {
    const FolderContents contents = files_.contents(folder);
    for (const std::string& name : contents.files) all_.push_back(files_.join(folder, name));
    for (const std::string& name : contents.folders) collect(files_.join(folder, name));
  }

  // Ends the walk after `limit` songs; false if it was ended so.
  bool walk(Names& found, std::size_t limit) {
    return files_.walk(folder_.path(), 10, isSong, [&](std::string_view path) {
      found.emplace_back(path);
      return found.size() < limit;
    });
  }

  Names allBefore(std::string_view path) const {
    const auto end = std::find_if(all_.begin(), all_.end(), [&](const std::string& song) { return song >= path; });
    return Names(all_.begin(), end);
  }

  UnprivilegedUser user_;
  TemporaryFolder folder_;
  LinuxFiles files_;
  Names all_;
};

TEST_F(LinuxWalkTest, EveryWalkHasTheOrderOfTheListings) {
  ASSERT_EQ(all_.size(), 50U * 3 * 2 + 600);
  for (int round = 0; round < 20; ++round) {
    Names found;
    EXPECT_TRUE(walk(found, all_.size() + 1));
    ASSERT_EQ(found, all_);
  }
}

TEST_F(LinuxWalkTest, AWalkThatIsEndedLeaksNothing) {
  const int next = nextDescriptor();
  for (std::size_t last = 1; last < all_.size(); last += 13) {
    Names found;
    EXPECT_FALSE(walk(found, last));
    ASSERT_EQ(found, Names(all_.begin(), all_.begin() + static_cast<std::ptrdiff_t>(last)));
  }
  const auto throwing = [](std::string_view path) -> bool {
    if (path.ends_with("artist 15/album 11/10.mp3")) throw std::runtime_error("enough");
    return true;
  };
  EXPECT_THROW(files_.walk(folder_.path(), 10, isSong, throwing), std::runtime_error);
  // The walks do not wait for their threads.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (nextDescriptor() != next && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
  EXPECT_EQ(nextDescriptor(), next);
}

TEST_F(LinuxWalkTest, AFolderRemovedDuringTheWalkIsSkipped) {
  const std::string gone = folder_ / "artist 59";
  Names found;
  EXPECT_TRUE(files_.walk(folder_.path(), 10, isSong, [&](std::string_view path) {
    if (found.empty()) fs::remove_all(gone);
    found.emplace_back(path);
    return true;
  }));
  EXPECT_EQ(found, allBefore(gone));
}

std::thread::id walkingThread;
std::atomic<bool> workerHasFailed;

bool failsOnTheWorker(std::string_view) {
  if (std::this_thread::get_id() == walkingThread) return true;
  workerHasFailed = true;
  workerHasFailed.notify_all();
  throw std::bad_alloc();
}

TEST_F(LinuxWalkTest, NoMemoryOnTheWorkerIsThrownByTheWalk) {
  walkingThread = std::this_thread::get_id();
  workerHasFailed = false;
  EXPECT_THROW(files_.walk(folder_.path(), 10, failsOnTheWorker,
                           [](std::string_view) {
                             workerHasFailed.wait(false);
                             return true;
                           }),
               std::bad_alloc);
}

// A folder that does not answer: a thread that lists it is held up at this name until the test releases it.
std::atomic<bool> released;
std::atomic<int> heldUp;

bool isSongOrHoldsUp(std::string_view name) {
  if (name != "hold.mp3") return isSong(name);
  ++heldUp;
  released.wait(false);
  --heldUp;
  return true;
}

class HeldUpWalkTest : public LinuxWalkTest {
 protected:
  HeldUpWalkTest() {
    released = false;
    visitor_.wanted = isSongOrHoldsUp;
    visitor_.found = [this](std::string_view path) {
      found_.emplace_back(path);
      return true;
    };
  }
  ~HeldUpWalkTest() override { release(); }

  void release() {
    released = true;
    released.notify_all();
    while (heldUp > 0) std::this_thread::yield();
  }

  WalkVisitor visitor_;
  Names found_;
};

TEST_F(HeldUpWalkTest, AWalkCanBeEndedWhileAFolderDoesNotAnswer) {
  const std::string held = folder_ / "artist 30";
  writeFile(held + "/hold.mp3", "");
  visitor_.waiting = [&](std::string_view folder) {
    EXPECT_EQ(folder, held);
    return false;
  };
  EXPECT_FALSE(files_.walk(folder_.path(), 10, visitor_));
  EXPECT_EQ(found_, allBefore(held));
  EXPECT_EQ(heldUp, 1);
}

TEST_F(HeldUpWalkTest, AWalkCanBeEndedWhileItsFirstFolderDoesNotAnswer) {
  writeFile(folder_ / "hold.mp3", "");
  visitor_.waiting = [](std::string_view) { return false; };
  EXPECT_FALSE(files_.walk(folder_.path(), 10, visitor_));
  EXPECT_EQ(found_, Names());
}

TEST_F(HeldUpWalkTest, AWalkGoesOnWhenTheFolderAnswers) {
  const std::string held = folder_ / "artist 30/hold.mp3";
  writeFile(held, "");
  all_.insert(std::lower_bound(all_.begin(), all_.end(), folder_ / "artist 30/"), held);
  int calls = 0;
  visitor_.waiting = [&](std::string_view) {
    if (++calls == 3) release();
    return true;
  };
  EXPECT_TRUE(files_.walk(folder_.path(), 10, visitor_));
  EXPECT_EQ(found_, all_);
  EXPECT_GE(calls, 3);
}

TEST_F(LinuxWalkTest, AnUnreadableFolderEndsTheWalkOnlyWhenItIsReached) {
  const std::string closed = folder_ / "artist 12";
  changeMode(closed, 0300);
  const Names open = allBefore(closed);
  for (int round = 0; round < 20; ++round) {
    Names found;
    EXPECT_FALSE(walk(found, open.size()));
    ASSERT_EQ(found, open);
    found.clear();
    try {
      walk(found, all_.size());
      FAIL() << "no error";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::permissionDenied);
      EXPECT_EQ(error.path(), closed);
    }
    ASSERT_EQ(found, open);
  }
  changeMode(closed, 0700);
}

}  // namespace
}  // namespace plimo
