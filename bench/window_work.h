// The commands that show how far they are, given as by a user to the real window, over real files.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "window_stage.h"

namespace plimo::bench {

// Hears of each painting of the panel that shows how far a command is.
class RepaintWatch {
 public:
  // `files`: how many the command has dealOrder with so far; null where nobody counts.
  RepaintWatch(Stage& stage, const std::size_t* files);

  // A command begins.
  void restart();
  std::size_t paintings() const { return paintings_; }
  // The longest way from one painting to the next.
  double seconds() const { return seconds_; }
  std::size_t filesBetween() const { return filesBetween_; }
  // The same, and from the command's beginning to the first one and from the last one to the end.
  std::size_t files() const;

 private:
  void painted();

  const std::size_t* counted_;
  std::size_t paintings_ = 0;
  double last_ = 0;
  double seconds_ = 0;
  std::size_t lastFiles_ = 0;
  std::size_t filesBetween_ = 0;
  std::size_t filesAround_ = 0;
};

// What came of one such command.
struct ProgressSample {
  Gap gap;
  std::size_t paintings = 0;
  double seconds = 0;            // the longest between two paintings
  std::size_t filesBetween = 0;  // the most between two of them
  std::size_t files = 0;         // the same, before the first and after the last one included
};

// Makes a program's folder with so many songs of so many bytes in its folder "music", to be scanned as drive M, and
// enters it.
void prepareWork(std::size_t songs, const std::string& folder, std::size_t bytes);
std::string musicFolder(const std::string& folder);

// The start with a scan and a scan by command; all songs copied into the program's folder, where that is wanted; all
// songs deleted.
std::vector<ProgressSample> giveWork(Stage& stage, std::size_t songs, const std::string& folder, bool copying,
                                     const std::size_t* files = nullptr);

}  // namespace plimo::bench
