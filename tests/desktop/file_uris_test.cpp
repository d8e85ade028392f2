// File addresses: which bytes of a path they keep, and which of them are files of this computer.
#include "desktop/theme/file_uris.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plimo {
namespace {

using testing::ElementsAre;

TEST(FileUris, KeepEveryByteOfAPath) {
  for (const char* path : {"/a b/c.mp3", "/100%/#1?.mp3", "/Caf\xE9.mp3", "/\xC3\xA9 \"x\".m3u", "/a\nb"}) {
    const QByteArray uri = fileUri(path);
    EXPECT_EQ(pathOfUri(uri), path) << uri.constData();
    for (const char byte : uri) EXPECT_TRUE(byte > ' ' && byte < 127) << uri.constData();
  }
  EXPECT_EQ(fileUri("/a b/c.mp3"), "file:///a%20b/c.mp3");
}

TEST(FileUris, MayNameThisComputer) {
  EXPECT_EQ(pathOfUri("file://localhost/a.m3u"), "/a.m3u");
  EXPECT_EQ(pathOfUri("FILE:/a.m3u"), "/a.m3u");
}

TEST(FileUris, OfOtherComputersAndOtherAddressesAreNoPaths) {
  for (const char* uri : {"", "file", "file:", "file://", "file:a.m3u", "file://server/a.m3u", "http://localhost/a.m3u",
                          "/a.m3u", "file:///a%00b"}) {
    EXPECT_EQ(pathOfUri(uri), std::nullopt) << uri;
  }
}

TEST(FileUris, InAListAreTakenInOrder) {
  EXPECT_THAT(pathsOfUriList("# a comment\r\nfile:///b.m3u\r\nhttp://x/y\r\nfile:///a.m3u"),
              ElementsAre("/b.m3u", "/a.m3u"));
}

}  // namespace
}  // namespace plimo
