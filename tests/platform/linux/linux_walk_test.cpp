// Walks through trees with many folders, which are partly prefetched.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
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
