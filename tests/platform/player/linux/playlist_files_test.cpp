// What is a song among the files of Linux.
#include <gtest/gtest.h>

#include "platform/player/m3u_entries.h"

namespace plimo {
namespace {

TEST(PlaylistEntries, ThatAreNotRegularFilesAreNotPlayable) {
  for (const char* entry : {"/dev/zero", "/dev/stdin", "/dev/random", "/tmp", "/", ".", "..", "-", "/x/list.m3u"}) {
    EXPECT_NE(checkEntry(entry, "/tmp").playable, Playable::yes) << entry;
  }
  EXPECT_EQ(checkEntry("/proc/kmsg", "/tmp").playable, Playable::empty) << "reading it would block for ever";
}

}  // namespace
}  // namespace plimo
