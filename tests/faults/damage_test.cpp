// The judgement of the files after a failure.
#include <gtest/gtest.h>

#include "support/writing_commands.h"

namespace plimo {
namespace {

using Paths = std::vector<std::string>;

class DamageTest : public testing::Test {
 protected:
  static Damage damage(const FileContents& now, bool catalogueMayBeMissing = false) {
    const FileContents before{{"/plimo.ini", "old"}, {"/plimo.kvx", "old"}, {"/a.mp3", "song a"}, {"/b.mp3", "song b"}};
    const FileContents after{{"/plimo.ini", "new"}, {"/plimo.kvx", "new"}, {"/c.mp3", "song a"}};
    return damageOf(now, {before, {after}, catalogueMayBeMissing});
  }
};

TEST_F(DamageTest, IsNoneIfEachFileIsOldOrNew) {
  EXPECT_TRUE(
      damage({{"/plimo.ini", "old"}, {"/plimo.kvx", "new"}, {"/a.mp3", "song a"}, {"/b.mp3", "song b"}}).none());
  EXPECT_TRUE(damage({{"/plimo.ini", "new"}, {"/plimo.kvx", "old"}, {"/c.mp3", "song a"}}).none());
  EXPECT_TRUE(damage({{"/plimo.ini", "new"}, {"/c.mp3", "song a"}}, true).none());
}

TEST_F(DamageTest, IsAFileWithOtherContentOrWithoutAny) {
  EXPECT_EQ(damage({{"/plimo.ini", "ne"}, {"/plimo.kvx", "new"}, {"/c.mp3", "song a"}}).torn, Paths{"/plimo.ini"});
  EXPECT_EQ(damage({{"/plimo.ini", "new"}, {"/c.mp3", "song a"}}).torn, Paths{"/plimo.kvx"});
  EXPECT_EQ(damage({{"/plimo.ini", "new"}, {"/plimo.kvx", "new"}, {"/c.mp3", "song"}, {"/a.mp3", "song a"}}).torn,
            Paths{"/c.mp3"});
  EXPECT_EQ(damage({{"/plimo.ini", "new"}, {"/plimo.kvx", "new"}, {"/c.mp3", "song a"}, {"/new.mp3", ""}}).torn,
            Paths{"/new.mp3"});
}

TEST_F(DamageTest, IsASongThatIsNowhereUnlessTheCommandDeletesIt) {
  EXPECT_EQ(damage({{"/plimo.ini", "old"}, {"/plimo.kvx", "old"}, {"/b.mp3", "song b"}}).lost, Paths{"/a.mp3"});
  EXPECT_EQ(damage({{"/plimo.ini", "old"}, {"/plimo.kvx", "old"}, {"/a.mp3", "song a"}}).lost, Paths());
}

TEST_F(DamageTest, IsNoTemporaryFile) {
  EXPECT_TRUE(
      damage({{"/plimo.ini", "new"}, {"/plimo.kvx", "new"}, {"/c.mp3", "song a"}, {"/.plimo-1-2.tmp", "x"}}).none());
}

}  // namespace
}  // namespace plimo
