// Plays songs through DirectShow, on a thread of its own.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/directshow/playback_thread.h"
#include "platform/player/song_engine.h"

namespace plimo {

class DirectShowEngine : public SongEngine {
 public:
  explicit DirectShowEngine(std::function<void()> wake) : thread_(std::move(wake)) {}

  // Waits for the thread; false if there is no DirectShow.
  bool start() { return thread_.start(); }

  void load(std::uint64_t song, const std::string& path, bool paused) override;
  void stop() override;
  void setPaused(bool paused) override;
  void seek(double seconds) override;
  void setVolume(int percent) override;
  void setMuted(bool muted) override;
  bool nextEvent(Event& result) override;

 private:
  // The song to be played, or 0: of several that are loaded at once, only the last is opened.
  std::shared_ptr<std::atomic<std::uint64_t>> wanted_ = std::make_shared<std::atomic<std::uint64_t>>(0);
  PlaybackThread thread_;
};

}  // namespace plimo
