#include "window/drive_rows.h"

#include <gtest/gtest.h>

namespace plimo {
namespace {

TEST(DriveRows, ARowIsTheLetterAColonAndTheKind) {
  EXPECT_EQ(driveRow({'C', DriveType::fixed, true, "C:\\"}), "C: Hard Drive");
  EXPECT_EQ(driveRow({'E', DriveType::cdrom, false, "E:\\"}), "E: CDROM");
  EXPECT_EQ(driveRow({'F', DriveType::removable, true, "F:\\"}), "F: REMOVABLE");
}

TEST(DriveRows, TheLetterIsThePartBeforeTheFirstColon) {
  EXPECT_EQ(driveLetterOf("C: Hard Drive"), "C");
  EXPECT_EQ(driveLetterOf("C"), "C");
}

}  // namespace
}  // namespace plimo
