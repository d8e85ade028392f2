#include "platform/linux/atomic_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/temporary_folder.h"

namespace plimo {
namespace {

// Both ways give the same; only some file systems know the first.
class PosixNewFile : public testing::TestWithParam<AtomicFile::Way> {
 protected:
  std::size_t entries() const {
    const std::filesystem::directory_iterator all(folder_.path());
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }

  std::string content(const std::string& path) const {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  TemporaryFolder folder_;
};

TEST_P(PosixNewFile, TakesThePlaceOfAnother) {
  writeFile(folder_ / "x", "old");
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "x"));
    ASSERT_TRUE(file.write("new"));
    EXPECT_EQ(content(folder_ / "x"), "old");
    ASSERT_TRUE(file.renameReplace());
  }
  EXPECT_EQ(content(folder_ / "x"), "new");
  EXPECT_EQ(entries(), 1U);
}

TEST_P(PosixNewFile, StandsBesideOthersOnlyWhereThereIsNone) {
  writeFile(folder_ / "x", "old");
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "x"));
    EXPECT_FALSE(file.renameNoReplace());
    EXPECT_EQ(errno, EEXIST);
  }
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "y"));
    ASSERT_TRUE(file.write("y"));
    EXPECT_TRUE(file.renameNoReplace());
  }
  EXPECT_EQ(content(folder_ / "x"), "old");
  EXPECT_EQ(content(folder_ / "y"), "y");
  EXPECT_EQ(entries(), 2U);
}

TEST_P(PosixNewFile, LeavesNothingWhenItIsNotPlaced) {
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "x"));
    ASSERT_TRUE(file.write("new"));
    EXPECT_EQ(entries(), GetParam() == AtomicFile::Way::hidden ? 1U : 0U);
  }
  EXPECT_EQ(entries(), 0U);
}

TEST_P(PosixNewFile, DoesNotTakeAFoldersPlace) {
  makeFolders(folder_ / "x");
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "x"));
    EXPECT_FALSE(file.renameReplace());
    EXPECT_EQ(errno, EISDIR);
  }
  EXPECT_EQ(entries(), 1U);
}

TEST_P(PosixNewFile, NeedsItsFolder) {
  AtomicFile file(GetParam());
  EXPECT_FALSE(file.create(folder_ / "missing/x"));
  EXPECT_EQ(errno, ENOENT);
}

INSTANTIATE_TEST_SUITE_P(Ways, PosixNewFile, testing::Values(AtomicFile::Way::unnamed, AtomicFile::Way::hidden));

}  // namespace
}  // namespace plimo
