#include "catalogue/path_arena.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace plimo {
namespace {

TEST(PathArena, ReturnsEveryPathUnchanged) {
  const std::vector<std::string> paths = {"/m/a.mp3",
                                          "/m/b.mp3",
                                          "/m/in/c.mp3",
                                          "/m/d.mp3",
                                          "/m/in/e.mp3",
                                          "/m/",
                                          "",
                                          "x.mp3",
                                          "y.mp3",
                                          "/",
                                          "C:\\Music\\a.mp3",
                                          "C:\\Music\\b.mp3",
                                          "C:\\c.mp3",
                                          "",
                                          "/m/AC\\DC - a.mp3",
                                          "/m/AC\\DC - b.mp3",
                                          "/m/AC/c.mp3",
                                          "/m/\\/d.mp3"};
  PathArena arena;
  std::vector<StoredPath> stored;
  for (const std::string& path : paths) stored.push_back(arena.store(std::string(path)));
  const PathArena moved = std::move(arena);
  std::string all;
  std::string expected;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    EXPECT_EQ(stored[i].text(), paths[i]);
    append(all, stored[i]);
    expected += paths[i];
  }
  EXPECT_EQ(all, expected);
}

TEST(PathArena, SongsOfOneFolderShareItsString) {
  PathArena arena;
  const StoredPath first = arena.store("/m/in/a.mp3");
  EXPECT_EQ(arena.store("/m/in/b.mp3").folder.data(), first.folder.data());
  EXPECT_NE(arena.store("/m/in/deep/c.mp3").folder.data(), first.folder.data());
  EXPECT_EQ(first.folder, "/m/in/");
}

}  // namespace
}  // namespace plimo
