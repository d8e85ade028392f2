// The interface to what decodes and sounds one song at a time. Its functions are called on the program's own thread and
// return immediately.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace plimo {

// The reason of a song whose content cannot be decoded.
inline constexpr const char* cannotBePlayed = "it cannot be played";

class SongEngine {
 public:
  SongEngine() = default;
  SongEngine(const SongEngine&) = delete;
  SongEngine& operator=(const SongEngine&) = delete;
  virtual ~SongEngine() = default;

  // Replaces the current song, if any, with the regular file of this absolute path. `song` identifies it in its events;
  // numbers are never used twice and are greater than 0.
  virtual void load(std::uint64_t song, const std::string& path, bool paused) = 0;
  virtual void stop() = 0;
  virtual void setPaused(bool paused) = 0;
  // Seconds from the song's start, at most its duration.
  virtual void seek(double seconds) = 0;
  virtual void setVolume(int percent) = 0;  // 0 to 100
  virtual void setMuted(bool muted) = 0;

  struct Event {
    enum class Kind { none, ended, failed, duration, position, paused } kind = Kind::none;
    std::uint64_t song = 0;  // as passed to load()
    double seconds = 0;      // of a duration or position
    bool paused = false;
    std::string reason = {};  // of a failure: a clause such as `cannotBePlayed`
  };
  // Takes the next event; false if there are no more. Events of former songs may still arrive.
  virtual bool nextEvent(Event& result) = 0;
};

// What an engine needs of the program.
struct EngineHost {
  // To be called after each new event; on any thread.
  std::function<void()> wake;
  // Runs the work on a thread of its own and returns when it has ended; the window is painted meanwhile.
  std::function<void(const std::function<void()>& work)> runInBackground;
};

// Starts an engine; null, and the whole sentence that says why nothing can be played, on failure.
using StartEngine = std::function<std::unique_ptr<SongEngine>(const EngineHost& host, std::string& problem)>;

}  // namespace plimo
