#include "platform/linux/atomic_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/temporary_folder.h"

namespace plimo {
namespace {

// Both modes behave the same; some file systems support only hidden files.
class AtomicFileTest : public testing::TestWithParam<AtomicFile::Mode> {
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

TEST_P(AtomicFileTest, ReplacesAnExistingFile) {
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

TEST_P(AtomicFileTest, IsNotRenamedOverAnExistingFileUnlessReplacing) {
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

TEST_P(AtomicFileTest, LeavesNothingIfItIsNotRenamed) {
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "x"));
    ASSERT_TRUE(file.write("new"));
    EXPECT_EQ(entries(), GetParam() == AtomicFile::Mode::hidden ? 1U : 0U);
  }
  EXPECT_EQ(entries(), 0U);
}

TEST_P(AtomicFileTest, DoesNotReplaceAFolder) {
  makeFolders(folder_ / "x");
  {
    AtomicFile file(GetParam());
    ASSERT_TRUE(file.create(folder_ / "x"));
    EXPECT_FALSE(file.renameReplace());
    EXPECT_EQ(errno, EISDIR);
  }
  EXPECT_EQ(entries(), 1U);
}

TEST_P(AtomicFileTest, FailsWithoutItsFolder) {
  AtomicFile file(GetParam());
  EXPECT_FALSE(file.create(folder_ / "missing/x"));
  EXPECT_EQ(errno, ENOENT);
}

INSTANTIATE_TEST_SUITE_P(Modes, AtomicFileTest, testing::Values(AtomicFile::Mode::unnamed, AtomicFile::Mode::hidden));

}  // namespace
}  // namespace plimo
