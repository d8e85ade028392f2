// Pauses that take no time, and the Cancel button of the scan's panel.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>

#include "platform/event_pump.h"

namespace plimo::scenario {

class ScriptedPump : public EventPump {
 public:
  // The next scan is cancelled when it has found this many songs.
  void queueCancel(std::size_t songs) { cancels_.push_back(songs); }
  // Those not used yet.
  const std::deque<std::size_t>& cancels() const { return cancels_; }

  void pause(std::chrono::milliseconds) override {}
  void scanBegins() override {
    cancelAt_.reset();
    if (cancels_.empty()) return;
    cancelAt_ = cancels_.front();
    cancels_.pop_front();
  }
  bool scanned(std::size_t songs, std::string_view) override { return !cancelAt_ || songs < *cancelAt_; }
  void scanEnds() override { cancelAt_.reset(); }
  void copied(const CopyProgress&) override {}
  void deleted(std::size_t, std::size_t) override {}
  void workEnds() override {}

 private:
  std::deque<std::size_t> cancels_;
  std::optional<std::size_t> cancelAt_;
};

}  // namespace plimo::scenario
