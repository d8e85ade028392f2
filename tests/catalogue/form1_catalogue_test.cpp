// Writing the catalogue of a scan, in pieces.
#include <gtest/gtest.h>

#include <string>

#include "support/test_program.h"

namespace plimo {
namespace {

TEST(WritingTheCatalogue, EveryRowGetsItsRecordInOrder) {
  // Fewer rows than one piece has, one and two full pieces and one row more, several turns of two pieces.
  for (const std::size_t count : {0UL, 1UL, 8191UL, 8192UL, 8193UL, 16384UL, 16385UL, 40000UL}) {
    TestProgram test;
    std::string expected;
    for (std::size_t row = 0; row < count; ++row) {
      const std::string title = " Song " + std::to_string(row) + ".mp3";
      const std::string path = "C:\\Music\\Abba -" + title;
      test.form().List3.add(path);
      appendRecord(expected, {path, "Abba", "Don't know!", title});
    }
    test.form().defdir = "C:\\Plimo";
    test.form().process();
    EXPECT_TRUE(test.files.fileContent("C:\\Plimo\\plimo.kvx") == expected) << count;
  }
}

// More than two mebibytes, which two threads read.
TEST(WritingTheCatalogue, ALargeCatalogueGivesAllArtists) {
  TestProgram test;
  std::string catalogue;
  std::size_t artists = 0;
  for (; catalogue.size() < 5 * 1024 * 1024 / 2; ++artists) {
    const std::string artist = "Artist " + std::to_string(artists);
    appendRecord(catalogue,
                 {"C:\\Music\\" + std::string(2000, 'm') + artist + " - Song.mp3", artist, "Don't know!", " Song.mp3"});
  }
  test.files.addTextFile("C:\\Plimo\\plimo.kvx", catalogue);
  test.program.start();
  ASSERT_EQ(test.form().List2.count(), artists);
  for (std::size_t artist = 0; artist < artists; ++artist) {
    ASSERT_TRUE(test.form().List2.find("ARTIST " + std::to_string(artist))) << artist;
  }
}

}  // namespace
}  // namespace plimo
