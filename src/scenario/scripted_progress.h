// The Cancel button of the scan's progress panel, and the window closed during a scan.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>

#include "platform/progress.h"

namespace plimo::scenario {

// What the user does once a scan has found this number of songs.
struct ScanAnswer {
  std::size_t songs = 0;
  bool closes = false;  // the window; else presses Cancel
};

class ScriptedProgress : public Progress {
 public:
  // For the next scan that has none yet and finds that many songs.
  void queue(ScanAnswer answer) { answers_.push_back(answer); }
  // Not taken by a scan yet.
  const std::deque<ScanAnswer>& answers() const { return answers_; }

  // Closes the main window.
  std::function<void()> close;

  void begin(Task task) override {
    cancelled_ = false;
    answer_.reset();
    if (task != Task::scan || answers_.empty()) return;
    answer_ = answers_.front();
    answers_.pop_front();
  }
  void update(const ProgressUpdate& update) override {
    if (cancelled_ || !answer_ || update.done < answer_->songs) return;
    cancelled_ = true;
    if (answer_->closes) close();
  }
  void end() override {
    if (answer_ && !cancelled_) answers_.push_front(*answer_);  // the scan found too few songs
    cancelled_ = false;
    answer_.reset();
  }
  bool cancelled() const override { return cancelled_; }

 private:
  std::deque<ScanAnswer> answers_;
  std::optional<ScanAnswer> answer_;
  bool cancelled_ = false;
};

}  // namespace plimo::scenario
