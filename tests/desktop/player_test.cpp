// The player with the real library and real files; where the machine has no sound, into nothing.
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLibrary>
#include <filesystem>
#include <fstream>
#include <string>

#include "desktop/player_strip.h"
#include "platform/mpv/mpv_player.h"

namespace plimo {
namespace {

// A tone in the plainest format there is; the player looks at what is in a file, not at its name.
std::string tone(double seconds) {
  constexpr std::uint32_t rate = 8000;
  const auto samples = static_cast<std::uint32_t>(rate * seconds);
  std::string bytes;
  const auto number = [&bytes](std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  };
  bytes += "RIFF";
  number(36 + samples, 4);
  bytes += "WAVEfmt ";
  number(16, 4);
  number(1, 2);
  number(1, 2);
  number(rate, 4);
  number(rate, 4);
  number(1, 2);
  number(8, 2);
  bytes += "data";
  number(samples, 4);
  bytes.append(samples, static_cast<char>(0x80));
  return bytes;
}

class Player : public testing::Test {
 protected:
  Player() {
    std::filesystem::create_directories(folder_);
    player_.newStream = [this] { heard_.push_back(player_.state().song); };
  }
  ~Player() override { std::filesystem::remove_all(folder_); }

  std::string file(const std::string& name, const std::string& bytes) {
    const auto path = folder_ / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }

  template <class Condition>
  bool comes(Condition condition, int patience = 15000) {
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < patience) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
  }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      ("plimo-player-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
  QLibrary library_{QStringLiteral("mpv"), 2};
  MpvPlayer player_{{
      [](std::function<void()> action) { QMetaObject::invokeMethod(qApp, std::move(action), Qt::QueuedConnection); },
      [this](const char* name) { return reinterpret_cast<void*>(library_.resolve(name)); },
      [] { return true; },
  }};
  std::vector<std::string> heard_;
};

TEST_F(Player, AnnouncesASongOnceItsLengthIsKnownAndMovesOn) {
  player_.open(file("one.mp3", tone(2)));
  ASSERT_TRUE(comes([this] { return !heard_.empty(); })) << player_.state().note;
  EXPECT_NEAR(player_.duration(), 2, 0.1);
  EXPECT_TRUE(comes([this] { return player_.currentPosition() > 0.2; }));
  EXPECT_EQ(heard_, std::vector<std::string>{"one.mp3"});
}

TEST_F(Player, WalksThroughAPlaylistAndAnnouncesSongsOfTheSameLength) {
  file("one.mp3", tone(0.5));
  file("two.mp3", tone(0.5));
  player_.open(file("list.m3u", "one.mp3\r\ntwo.mp3\r\n"));
  EXPECT_TRUE(comes([this] { return heard_.size() == 2 && !player_.state().opened; }));
  EXPECT_EQ(heard_, (std::vector<std::string>{"one.mp3", "two.mp3"}));
}

TEST_F(Player, SkipsWhatCannotBePlayedAndSaysSo) {
  file("good.mp3", tone(0.5));
  file("damaged.mp3", "this is no sound at all");
  file("sly.mp3", "#EXTM3U\n/dev/zero\n" + (folder_ / "good.mp3").string() + "\n");
  player_.open(
      file("list.m3u", "http://example.org/x.mp3\r\n/dev/zero\r\ngone.mp3\r\ndamaged.mp3\r\nsly.mp3\r\ngood.mp3\r\n"));
  EXPECT_TRUE(comes([this] { return !heard_.empty(); }));
  EXPECT_EQ(heard_, std::vector<std::string>{"good.mp3"});
  EXPECT_EQ(player_.state().note, "Skipped sly.mp3: it cannot be played.");
}

TEST_F(Player, SaysWhyAWholePlaylistStaysSilent) {
  player_.open(file("list.m3u", "gone.mp3\r\n"));
  EXPECT_EQ(player_.state().note, "Skipped gone.mp3: the file is gone.");
  EXPECT_FALSE(player_.state().opened);
}

TEST_F(Player, StopsAndPlaysAgain) {
  player_.open(file("one.mp3", tone(5)));
  ASSERT_TRUE(comes([this] { return player_.currentPosition() > 0.1; }));
  player_.stop();
  EXPECT_EQ(player_.duration(), 0);
  EXPECT_EQ(player_.currentPosition(), 0);
  comes([this] { return heard_.size() > 1; }, 500);
  EXPECT_EQ(heard_.size(), 1U) << "nothing more is told of a song that was stopped";
  player_.playOrPause();
  EXPECT_TRUE(comes([this] { return heard_.size() == 2; }));
}

TEST_F(Player, OpensWithoutPlayingWhereItIsNotToStartByItself) {
  player_.setAutoStart(false);
  player_.open(file("one.mp3", tone(5)));
  ASSERT_TRUE(comes([this] { return !heard_.empty(); }));
  EXPECT_TRUE(player_.state().paused);
  player_.playOrPause();
  EXPECT_TRUE(comes([this] { return player_.currentPosition() > 0.1; }));
}

TEST_F(Player, SeeksWithinTheSong) {
  player_.open(file("one.mp3", tone(20)));
  ASSERT_TRUE(comes([this] { return !heard_.empty(); }));
  player_.seek(15);
  EXPECT_TRUE(comes([this] { return player_.currentPosition() > 15.1; }));
}

TEST(PlayerWithoutItsLibrary, SaysSo) {
  MpvPlayer player({[](std::function<void()>) {}, [](const char*) -> void* { return nullptr; }, [] { return true; }});
  player.open("/nowhere.mp3");
  EXPECT_EQ(player.state().note, "Nothing can be played here: the sound library libmpv is missing.");
  EXPECT_EQ(player.duration(), 0);
}

TEST(ClockText, WritesMinutesAndHours) {
  EXPECT_EQ(clockText(0), QStringLiteral("0:00"));
  EXPECT_EQ(clockText(65.9), QStringLiteral("1:05"));
  EXPECT_EQ(clockText(3600 + 62), QStringLiteral("1:01:02"));
  EXPECT_EQ(clockText(-1), QStringLiteral("0:00"));
}

}  // namespace
}  // namespace plimo
