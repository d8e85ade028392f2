// A player on an engine, and the task queue of the program's thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/player/native_engine.h"
#include "platform/player/playlist_player.h"
#include "support/temporary_folder.h"

namespace plimo {

// Tasks for the program's thread.
class TaskQueue {
 public:
  void post(std::function<void()> action);
  // Runs all tasks posted so far; waits a few milliseconds if there are none.
  void runPending();

 private:
  std::mutex mutex_;
  std::condition_variable added_;
  std::deque<std::function<void()>> actions_;
};

class TestPlayer {
 public:
  explicit TestPlayer(StartEngine startEngine = startNativeEngine);

  // Processes events until the condition is true; false on a timeout.
  bool until(const std::function<bool()>& condition);
  // Processes events until playback has ended.
  bool untilEnd();
  bool untilNewStreams(std::size_t count);
  // Processes the events that are already on their way.
  void settle();

  const PlaylistPlayer::State& state() const { return player.state(); }
  const std::string& note() const { return player.state().note; }

 private:
  TaskQueue tasks_;

 public:
  bool listening = true;
  PlaylistPlayer player;
  std::vector<double> lengths;      // the duration at each newStream, in seconds
  std::vector<std::string> played;  // the song at each newStream
  std::vector<std::string> notes;   // each note, without consecutive repetitions

 private:
  std::shared_ptr<void> observation_;
};

// The content of a silent MP3 of about this duration.
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
