// The scale of the volume, and the names of files.
#include <gtest/gtest.h>

#include "platform/directshow/playback.h"
#include "platform/directshow/song_file.h"

namespace plimo {
namespace {

TEST(Attenuation, IsZeroAtFullVolumeAndSilenceAtNone) {
  EXPECT_EQ(attenuation(100), 0);
  EXPECT_EQ(attenuation(0), -10000);
}

TEST(Attenuation, IsTheCubeOfTheVolumeInDecibels) {
  EXPECT_EQ(attenuation(50), -1806);
  EXPECT_EQ(attenuation(10), -6000);
  EXPECT_EQ(attenuation(1), -10000) << "no less than silence";
}

TEST(WidePath, IsExtendedOnlyIfTheSystemWouldChangeIt) {
  const std::string name(300, 'x');
  EXPECT_EQ(widePath("C:\\a.mp3"), L"C:\\a.mp3");
  EXPECT_EQ(widePath("C:\\a.mp3 "), L"\\\\?\\C:\\a.mp3 ");
  EXPECT_EQ(widePath("C:\\" + name), L"\\\\?\\C:\\" + std::wstring(300, L'x'));
  EXPECT_EQ(widePath("\\\\host\\" + name), L"\\\\?\\UNC\\host\\" + std::wstring(300, L'x'));
}

TEST(SongFile, ThatIsMissingOrADeviceIsReported) {
  EXPECT_EQ(problemOfFile(L"C:\\no such folder\\a.mp3"), "the file is gone");
  EXPECT_NE(problemOfFile(L"NUL"), "");
}

}  // namespace
}  // namespace plimo
