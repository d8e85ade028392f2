// libmpv is isolated from the user's settings, from scripts and from the network; and the program works without it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "platform/mpv/sound_library.h"
#include "support/player/test_player.h"

namespace plimo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A home folder with mpv settings that leave a trace when they are read.
class HomeWithMpvSettings {
 public:
  HomeWithMpvSettings() {
    for (const std::string folder : {"/.config/mpv", "/.mpv"}) {
      writeFile(home_.path() + folder + "/mpv.conf", "log-file=" + (home_ / "log") + "\nmute=yes\npause=yes\n");
      writeFile(home_.path() + folder + "/scripts/trace.lua", "io.open('" + (home_ / "script") + "', 'w'):close()\n");
    }
    ::setenv("HOME", home_.path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home_ / ".config").c_str(), 1);
    ::setenv("MPV_HOME", (home_ / ".config/mpv").c_str(), 1);
  }
  HomeWithMpvSettings(const HomeWithMpvSettings&) = delete;
  HomeWithMpvSettings& operator=(const HomeWithMpvSettings&) = delete;
  ~HomeWithMpvSettings() {
    ::unsetenv("MPV_HOME");
    ::unsetenv("XDG_CONFIG_HOME");
    if (before_.empty()) {
      ::unsetenv("HOME");
    } else {
      ::setenv("HOME", before_.c_str(), 1);
    }
  }

  bool configRead() const { return std::filesystem::exists(home_ / "log"); }
  bool scriptRun() const { return std::filesystem::exists(home_ / "script"); }

 private:
  TemporaryFolder home_;
  std::string before_ = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
};

// Listens on a local port, to detect connections.
class ConnectionTrap {
 public:
  ConnectionTrap() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* general = reinterpret_cast<sockaddr*>(&address);
    listening_ = ::bind(socket_, general, length) == 0 && ::listen(socket_, 5) == 0 &&
                 ::getsockname(socket_, general, &length) == 0;
    port_ = ::ntohs(address.sin_port);
  }
  ConnectionTrap(const ConnectionTrap&) = delete;
  ConnectionTrap& operator=(const ConnectionTrap&) = delete;
  ~ConnectionTrap() { ::close(socket_); }

  bool listening() const { return listening_; }
  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_); }
  bool hasBeenConnected() const {
    const int connection = ::accept(socket_, nullptr, nullptr);
    if (connection >= 0) ::close(connection);
    return connection >= 0;
  }

 private:
  int socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
  bool listening_ = false;
  int port_ = 0;
};

// The names of this process's threads.
std::string threads() {
  std::string names;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
    std::string name;
    std::ifstream file(thread.path() / "comm");
    std::getline(file, name);
    names += name + "\n";
  }
  return names;
}

TEST(MpvIsolation, TheUsersMpvSettingsAndScriptsHaveNoEffect) {
  const HomeWithMpvSettings home;
  Songs songs;
  TestPlayer test;
  test.player.open(songs.add("a.mp3", 0.5));
  ASSERT_TRUE(test.untilEnd());
  EXPECT_FALSE(home.configRead());
  EXPECT_FALSE(home.scriptRun());
}

int (*realSetOption)(void*, const char*, const char*) = nullptr;

int setOptionEnablingSettings(void* handle, const char* name, const char* value) {
  const bool settings = std::strcmp(name, "config") == 0 || std::strcmp(name, "load-scripts") == 0;
  return realSetOption(handle, name, settings ? "yes" : value);
}

// Proves that the test above can fail.
TEST(MpvIsolation, TheSettingsWouldHaveAnEffectIfTheyWereRead) {
  const HomeWithMpvSettings home;
  Songs songs;
  realSetOption = reinterpret_cast<decltype(realSetOption)>(soundLibraryFunction("mpv_set_option_string"));
  TestPlayer test(startMpvWith([](const char* name) {
    const bool swapped = std::string_view(name) == "mpv_set_option_string";
    return swapped ? reinterpret_cast<void*>(&setOptionEnablingSettings) : soundLibraryFunction(name);
  }));
  test.player.open(songs.add("a.mp3", 0.3));
  EXPECT_TRUE(test.until([&] { return home.configRead() && home.scriptRun(); }));
}

TEST(MpvIsolation, NoScriptRuns) {
  Songs songs;
  TestPlayer test;
  test.player.open(songs.add("a.mp3", 3));
  ASSERT_TRUE(test.until([&] { return test.player.currentPosition() > 0; }));

  EXPECT_THAT(threads(), testing::Not(HasSubstr("script")));
  EXPECT_THAT(threads(), testing::Not(HasSubstr("lua")));
}

TEST(MpvIsolation, NoNetworkConnectionIsMadeAndNoOtherFileIsOpened) {
  const ConnectionTrap trap;
  ASSERT_TRUE(trap.listening());
  Songs songs;
  const auto good = songs.add("good.mp3");
  const std::string address = trap.address() + "/a.mp3";
  const std::string stream = "#EXTM3U\n#EXT-X-TARGETDURATION:5\n#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:5,\n";
  TestPlayer test;
  test.player.open(songs.list({
      address,
      songs.addFile("address.mp3", address + "\n"),
      songs.addFile("list.mp3", "#EXTM3U\n" + address + "\n"),
      songs.addFile("stream.mp3", stream + address + "\n#EXT-X-ENDLIST\n"),
      songs.addFile("local stream.mp3", stream + good + "\n#EXT-X-ENDLIST\n"),
      songs.addFile("pls.mp3", "[playlist]\nNumberOfEntries=1\nFile1=" + address + "\n"),
      songs.addFile("concat.mp3", "ffconcat version 1.0\nfile '" + good + "'\n"),
      songs.addFile("edl.mp3", "# mpv EDL v0\n" + good + "\n"),
      songs.addFile("cue.mp3", "FILE \"" + good + "\" MP3\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"),
  }));
  EXPECT_TRUE(test.untilEnd());
  EXPECT_THAT(test.played, ElementsAre());
  EXPECT_THAT(test.note(), HasSubstr("None of the 9 songs can be played;"));
  test.player.open(address);
  test.settle();
  EXPECT_FALSE(trap.hasBeenConnected());
}

TEST(MpvIsolation, TheLibraryIsLoadedOnlyAtTheFirstOpening) {
  Songs songs;
  int resolved = 0;
  TestPlayer test(startMpvWith([&resolved](const char* name) {
    ++resolved;
    return soundLibraryFunction(name);
  }));
  test.player.setVolume(50);
  test.player.setMuted(true);
  test.player.setShowControls(true);
  test.player.setEnabled(true);
  test.player.setAutoStart(true);
  test.player.setFileName("c:\\");
  test.player.stop();
  test.player.playOrPause();
  test.player.next();
  test.player.previous();
  test.player.seek(1);
  test.player.drainEvents();
  EXPECT_EQ(resolved, 0);
  test.player.open(songs.add("a.mp3"));
  EXPECT_GT(resolved, 0);
}

TEST(MpvIsolation, WithoutTheLibraryEachOpeningReportsItAndNothingElseHappens) {
  Songs songs;
  bool installed = false;
  TestPlayer test(startMpvWith([&](const char* name) { return installed ? soundLibraryFunction(name) : nullptr; }));
  const char* const missing = "Nothing can be played here: the sound library libmpv is missing.";
  test.player.open(songs.list({songs.add("a.mp3"), songs.add("b.mp3")}));
  EXPECT_EQ(test.note(), missing);
  test.player.playOrPause();
  test.player.next();
  test.player.previous();
  test.player.seek(1);
  test.player.setVolume(10);
  test.player.setMuted(true);
  test.player.stop();
  test.player.open(songs / "a.mp3");
  test.settle();
  EXPECT_EQ(test.note(), missing);
  EXPECT_FALSE(test.state().opened);
  EXPECT_EQ(test.player.duration(), 0);
  installed = true;
  test.player.open(songs / "a.mp3");
  EXPECT_TRUE(test.untilNewStreams(1)) << "installed after the first opening";
  EXPECT_EQ(test.note(), "");
}

TEST(MpvIsolation, ALibraryThatFailsToStartIsTreatedAsMissing) {
  Songs songs;
  TestPlayer test(startMpvWith([](const char* name) {
    void* (*none)() = []() -> void* { return nullptr; };
    return std::string_view(name) == "mpv_create" ? reinterpret_cast<void*>(none) : soundLibraryFunction(name);
  }));
  test.player.open(songs.add("a.mp3"));
  EXPECT_THAT(test.note(), HasSubstr("libmpv"));
  EXPECT_FALSE(test.state().opened);
}

}  // namespace
}  // namespace plimo
