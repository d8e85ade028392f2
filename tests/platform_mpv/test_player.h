// A player with the real sound library, and a test's hand on the program's thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "platform/mpv/mpv_player.h"
#include "support/temporary_folder.h"

namespace plimo {

// A function of the sound library; null where the library or the function is missing.
void* soundLibraryFunction(const char* name);

// What is to be run on the program's thread.
class Posted {
 public:
  void post(std::function<void()> action);
  // Runs all that is posted now; waits a little where there is nothing.
  void runSome();

 private:
  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<std::function<void()>> actions_;
};

class TestPlayer {
 public:
  explicit TestPlayer(std::function<void*(const char* name)> resolve = soundLibraryFunction);

  // Lets the player live until the condition holds; false where it never does.
  bool until(const std::function<bool()>& condition);
  // Plays until nothing plays any more.
  bool untilEnd();
  bool untilNewStreams(std::size_t count);
  // What is already on its way is done.
  void settle();

  const MpvPlayer::State& state() const { return player.state(); }
  const std::string& note() const { return player.state().note; }

 private:
  Posted posted_;
  std::function<void*(const char* name)> resolve_;

 public:
  int resolved = 0;  // functions asked for
  bool listening = true;
  MpvPlayer player;
  std::vector<double> lengths;      // what newStream told of, in order
  std::vector<std::string> played;  // the songs at that moment
  std::vector<std::string> notes;   // each text that stood in the strip, without repetition
};

// A silent MP3 of about so many seconds.
std::string silentSong(double seconds);

// A folder of songs.
class Songs {
 public:
  std::string add(const std::string& name, double seconds = 0.3);
  std::string addFile(const std::string& name, const std::string& content);
  // A playlist of these lines.
  std::string list(const std::vector<std::string>& lines);
  std::string operator/(const std::string& name) const { return folder_ / name; }

 private:
  TemporaryFolder folder_;
};

}  // namespace plimo
