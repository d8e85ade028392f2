// The Cancel button of the scan's progress panel.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>

#include "platform/progress.h"

namespace plimo::scenario {

class ScriptedProgress : public Progress {
 public:
  // Cancels the next scan once it has found this number of songs.
  void queueCancel(std::size_t songs) { cancels_.push_back(songs); }
  // Those that no scan has taken yet.
  const std::deque<std::size_t>& cancels() const { return cancels_; }

  void begin(Task task) override {
    done_ = 0;
    cancelAt_.reset();
    if (task != Task::scan || cancels_.empty()) return;
    cancelAt_ = cancels_.front();
    cancels_.pop_front();
  }
  void update(const ProgressUpdate& update) override { done_ = update.done; }
  void end() override { cancelAt_.reset(); }
  bool cancelled() const override { return cancelAt_ && done_ >= *cancelAt_; }

 private:
  std::deque<std::size_t> cancels_;
  std::optional<std::size_t> cancelAt_;
  std::size_t done_ = 0;
};

}  // namespace plimo::scenario
