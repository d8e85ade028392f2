#include "platform/memory/short_name.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace plimo {
namespace {

std::string alone(const std::string& name) {
  return shortNameFor(name, [](std::string_view) { return false; });
}

TEST(ShortName, ANameThatFitsIsItsOwnWithItsCase) {
  for (const char* name : {"Winamp.exe", "a.b", "ABCDEFGH.mp3", "Music", "a-b_(1).mp3", "Bj\xC3\xB6rk.mp3", "~1.x"}) {
    EXPECT_EQ(alone(name), name);
  }
}

TEST(ShortName, AnyOtherGetsSixLettersANumberAndThreeOfTheExtension) {
  EXPECT_EQ(alone("Dancing Queen.mp3"), "DANCIN~1.MP3");
  EXPECT_EQ(alone("winampplayer.exe"), "WINAMP~1.EXE");
  EXPECT_EQ(alone("Program Files"), "PROGRA~1");
  EXPECT_EQ(alone("ABCDEFGHI.mp3"), "ABCDEF~1.MP3");
  EXPECT_EQ(alone("a.jpeg"), "A~1.JPE");
  EXPECT_EQ(alone("A - B.mp3"), "A-B~1.MP3");
  EXPECT_EQ(alone("a.b.mp3"), "AB~1.MP3");
  EXPECT_EQ(alone("one+one=2.mp3"), "ONEONE~1.MP3");
  EXPECT_EQ(alone(".profile"), "PROFIL~1");
  EXPECT_EQ(alone("a b."), "AB~1");
}

TEST(ShortName, TheNumberCountsUpPastTheTakenNames) {
  std::set<std::string> taken;
  for (int i = 0; i < 12; ++i) {
    taken.insert(
        shortNameFor("Dancing Queen.mp3", [&](std::string_view name) { return taken.contains(std::string(name)); }));
  }
  EXPECT_TRUE(taken.contains("DANCIN~9.MP3"));
  EXPECT_TRUE(taken.contains("DANCI~12.MP3"));
}

}  // namespace
}  // namespace plimo
