#include "platform/memory/short_name.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace plimo {
namespace {

// A folder's entries with their short names.
class Folder {
 public:
  std::string add(const std::string& name) {
    const std::string shortName =
        names_.nameFor(name, [this](std::string_view taken) { return used_.contains(std::string(taken)); });
    used_.insert(shortName);
    return shortName;
  }
  void remove(const std::string& shortName) {
    used_.erase(shortName);
    names_.release(shortName);
  }

 private:
  ShortNames names_;
  std::set<std::string> used_;
};

std::string shortNameOf(const std::string& name) { return Folder().add(name); }

TEST(ShortName, ANameThatFitsIsItsOwnShortName) {
  for (const char* name : {"Winamp.exe", "a.b", "ABCDEFGH.mp3", "Music", "a-b_(1).mp3", "Bj\xC3\xB6rk.mp3", "~1.x"}) {
    EXPECT_EQ(shortNameOf(name), name);
  }
}

TEST(ShortName, OtherNamesGetSixCharactersANumberAndAShortExtension) {
  EXPECT_EQ(shortNameOf("Dancing Queen.mp3"), "DANCIN~1.MP3");
  EXPECT_EQ(shortNameOf("winampplayer.exe"), "WINAMP~1.EXE");
  EXPECT_EQ(shortNameOf("Program Files"), "PROGRA~1");
  EXPECT_EQ(shortNameOf("ABCDEFGHI.mp3"), "ABCDEF~1.MP3");
  EXPECT_EQ(shortNameOf("a.jpeg"), "A~1.JPE");
  EXPECT_EQ(shortNameOf("A - B.mp3"), "A-B~1.MP3");
  EXPECT_EQ(shortNameOf("a.b.mp3"), "AB~1.MP3");
  EXPECT_EQ(shortNameOf("one+one=2.mp3"), "ONEONE~1.MP3");
  EXPECT_EQ(shortNameOf(".profile"), "PROFIL~1");
  EXPECT_EQ(shortNameOf("a b."), "AB~1");
}

TEST(ShortName, TheNumberSkipsTakenNames) {
  Folder folder;
  for (int i = 1; i < 9; ++i) folder.add("Dancing Queen.mp3");
  EXPECT_EQ(folder.add("Dancing Queen.mp3"), "DANCIN~9.MP3");
  EXPECT_EQ(folder.add("Dancing Queen.mp3"), "DANCI~10.MP3");
  EXPECT_EQ(folder.add("Dancing Queen.ogg"), "DANCIN~1.OGG");
  EXPECT_EQ(folder.add("DANCI~12.MP3"), "DANCI~12.MP3");
  EXPECT_EQ(folder.add("Dancing King.mp3"), "DANCI~11.MP3");
  EXPECT_EQ(folder.add("Dancing Fool.mp3"), "DANCI~13.MP3");
}

TEST(ShortName, AFreedNumberIsAssignedNext) {
  Folder folder;
  for (int i = 1; i <= 12; ++i) folder.add("Dancing Queen.mp3");
  folder.remove("DANCI~11.MP3");
  folder.remove("DANCIN~4.MP3");
  EXPECT_EQ(folder.add("Dancing King.mp3"), "DANCIN~4.MP3");
  EXPECT_EQ(folder.add("Dancing King.mp3"), "DANCI~11.MP3");
  EXPECT_EQ(folder.add("Dancing King.mp3"), "DANCI~13.MP3");
}

TEST(ShortName, ALongerNumberMayCollideWithAnotherPrefix) {
  Folder folder;
  for (int i = 1; i <= 10; ++i) folder.add("Dancing Queen.mp3");
  for (int i = 1; i <= 9; ++i) folder.add("Dancito Queen.mp3");
  EXPECT_EQ(folder.add("Dancito Queen.mp3"), "DANCI~11.MP3");
}

}  // namespace
}  // namespace plimo
