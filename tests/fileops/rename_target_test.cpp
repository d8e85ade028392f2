#include "fileops/rename_target.h"

#include "fileops/library.h"

namespace plimo {
namespace {

TEST(ProposedName, IsTheFileNameWithoutItsExtension) {
  EXPECT_EQ(proposedName("Abba - Dancing Queen.mp3"), "Abba - Dancing Queen");
  EXPECT_EQ(proposedName("A - B - C - D.Mp3"), "A - B - C - D");
  EXPECT_EQ(proposedName("a.b.mp3"), "a.b");
  EXPECT_EQ(proposedName("none"), "none");
}

class RenamedPath : public Library {
 protected:
  std::optional<ErrorNumber> failureOfNaming(const std::string& name) {
    return failureOf([&] { renamedPath(files, song, name); });
  }
  std::string song = R"(C:\Music\x.wav.MP3)";
};

TEST_F(RenamedPath, StaysInTheFolderAndEndsInMp3) {
  addSong(song);
  EXPECT_EQ(renamedPath(files, song, "A - New"), R"(C:\Music\A - New.mp3)");
}

TEST_F(RenamedPath, HasOneSeparatorInARootFolder) {
  addSong(R"(C:\x.mp3)");
  EXPECT_EQ(renamedPath(files, R"(C:\x.mp3)", "y"), R"(C:\y.mp3)");
}

TEST_F(RenamedPath, RefusesSeparators) {
  addSong(song);
  for (const char* name : {R"(a\b)", "a/b", "a:b"}) EXPECT_EQ(failureOfNaming(name), ErrorNumber::badFileName) << name;
}

TEST_F(RenamedPath, RefusesAMissingFile) { EXPECT_EQ(failureOfNaming("y"), ErrorNumber::fileNotFound); }

TEST_F(RenamedPath, RefusesTheFileItselfInAnyCase) {
  addSong(song);
  EXPECT_EQ(failureOfNaming("x.wav"), ErrorNumber::permissionDenied);
  EXPECT_EQ(failureOfNaming("X.WAV"), ErrorNumber::permissionDenied);
}

TEST_F(RenamedPath, MayBeThePathOfAnotherFile) {
  addSong(song);
  addSong(R"(C:\Music\y.mp3)");
  EXPECT_EQ(renamedPath(files, song, "y"), R"(C:\Music\y.mp3)");
}

}  // namespace
}  // namespace plimo
