// A launcher that starts nothing and keeps what it was asked to start.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/launcher.h"

namespace plimo {

class FakeLauncher : public Launcher {
 public:
  struct Started {
    std::string commandLine;  // the program, one blank, the argument
    bool minimised = false;
  };

  // `files` tells which programs there are.
  explicit FakeLauncher(FileSystemObject& files) : files_(files) {}

  // In order; never forgotten.
  const std::vector<Started>& started() const { return started_; }

  void start(const std::string& program, const std::string& argument) override;

 private:
  FileSystemObject& files_;
  std::vector<Started> started_;
};

}  // namespace plimo
