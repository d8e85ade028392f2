// Plays nothing; records the calls.
#pragma once

#include <string>
#include <vector>

#include "platform/media_player.h"

namespace plimo {

class FakePlayer : public MediaPlayer {
 public:
  enum class State { stopped, playing };

  // --- Setup ---

  // In seconds.
  void setDuration(double seconds) { duration_ = seconds; }
  void setCurrentPosition(double seconds) { position_ = seconds; }
  void announceStream() {
    if (newStream) newStream();
  }

  // --- What was called ---

  const std::vector<std::string>& opened() const { return opened_; }  // all of them, in order
  const std::string& fileName() const { return fileName_; }           // the last one set
  State state() const { return state_; }
  bool autoStart() const { return autoStart_; }
  bool showControls() const { return showControls_; }
  bool enabled() const { return enabled_; }

  // --- MediaPlayer ---

  void open(const std::string& path) override {
    opened_.push_back(path);
    state_ = autoStart_ ? State::playing : State::stopped;
  }
  void stop() override { state_ = State::stopped; }
  void setFileName(const std::string& name) override { fileName_ = name; }
  double duration() override { return duration_; }
  double currentPosition() override { return position_; }
  void setAutoStart(bool on) override { autoStart_ = on; }
  void setShowControls(bool on) override { showControls_ = on; }
  void setEnabled(bool on) override { enabled_ = on; }

 private:
  std::vector<std::string> opened_;
  std::string fileName_;
  State state_ = State::stopped;
  double duration_ = 0;
  double position_ = 0;
  bool autoStart_ = true;
  bool showControls_ = true;
  bool enabled_ = true;
};

}  // namespace plimo
