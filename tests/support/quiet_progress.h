// A Progress that shows nothing and records its updates.
#pragma once

#include <string>
#include <vector>

#include "platform/progress.h"

namespace plimo {

class QuietProgress : public Progress {
 public:
  void begin(Task) override {}
  void update(const ProgressUpdate& update) override {
    ++count_;
    if (!recording) return;
    std::string text = std::to_string(update.done) + "/" + std::to_string(update.total);
    if (!update.name.empty()) text.append(" ").append(update.name);
    updates.push_back(text);
  }
  void end() override { ++ends; }
  bool cancelled() const override { return cancelAfter > 0 && count_ >= cancelAfter; }

  bool recording = true;             // false in benchmarks, which report each of a million songs
  std::vector<std::string> updates;  // "2/3 x.mp3"
  int ends = 0;
  int cancelAfter = 0;  // cancels at this update, from 1; 0: never

 private:
  int count_ = 0;
};

}  // namespace plimo
