// An event pump that counts what it is told and shows nothing.
#pragma once

#include <string>
#include <vector>

#include "platform/progress.h"

namespace plimo {

class QuietProgress : public Progress {
 public:
  void pause(std::chrono::milliseconds) override {}
  void scanBegins() override {}
  bool scanned(std::size_t, std::string_view) override { return true; }
  void scanEnds() override {}
  void copied(const CopyProgress& progress) override {
    copies.push_back(std::to_string(progress.file) + "/" + std::to_string(progress.files) + " " +
                     std::string(progress.name));
  }
  void deleted(std::size_t file, std::size_t files) override {
    deletions.push_back(std::to_string(file) + "/" + std::to_string(files));
  }
  void workEnds() override { ++ends; }

  std::vector<std::string> copies;     // "2/3 x.mp3"
  std::vector<std::string> deletions;  // "2/3"
  int ends = 0;
};

}  // namespace plimo
