// Walks through trees of many folders, of which some are listed ahead.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <stdexcept>

#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

bool isSong(std::string_view name) { return name.ends_with("mp3"); }

// The number that the next open file would get: higher when one was left open.
int nextDescriptor() {
  const int next = ::dup(STDIN_FILENO);
  ::close(next);
  return next;
}

// Three folders in each of fifty, with two songs in each. The first ones hold many songs, so that those behind them are
// listed sooner.
class PosixWalkTest : public testing::Test {
 protected:
  PosixWalkTest() : files_(std::vector<DriveRoot>{{'C', DriveType::fixed, folder_.path()}}) {
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
    listed(folder_.path());
  }

  // What a walk is to find, from listings of single folders.
  void listed(const std::string& folder) {
    const FolderContents contents = files_.contents(folder);
    for (const std::string& name : contents.files) all_.push_back(files_.join(folder, name));
    for (const std::string& name : contents.folders) listed(files_.join(folder, name));
  }

  // The songs found by a walk that is ended at its `last`th one; whether it came to its own end.
  bool walk(Names& found, std::size_t last) {
    return files_.walk(folder_.path(), 10, isSong, [&](std::string_view path) {
      found.emplace_back(path);
      return found.size() < last;
    });
  }

  Names allBefore(std::string_view path) const {
    const auto end = std::find_if(all_.begin(), all_.end(), [&](const std::string& song) { return song >= path; });
    return Names(all_.begin(), end);
  }

  OrdinaryUser user_;
  TemporaryFolder folder_;
  LinuxFiles files_;
  Names all_;
};

TEST_F(PosixWalkTest, EveryWalkHasTheOrderOfTheListings) {
  ASSERT_EQ(all_.size(), 50U * 3 * 2 + 600);
  for (int round = 0; round < 20; ++round) {
    Names found;
    EXPECT_TRUE(walk(found, all_.size() + 1));
    ASSERT_EQ(found, all_);
  }
}

TEST_F(PosixWalkTest, AWalkThatIsEndedLeavesNothingBehind) {
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

TEST_F(PosixWalkTest, AFolderThatGoesOnTheWayIsPassedOver) {
  const std::string gone = folder_ / "artist 59";
  Names found;
  EXPECT_TRUE(files_.walk(folder_.path(), 10, isSong, [&](std::string_view path) {
    if (found.empty()) fs::remove_all(gone);
    found.emplace_back(path);
    return true;
  }));
  EXPECT_EQ(found, allBefore(gone));
}

TEST_F(PosixWalkTest, AClosedFolderEndsTheWalkOnlyWhenItIsReached) {
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
