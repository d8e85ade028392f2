// Records the programs to start, without starting them.
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

  // A program can be started if it exists in `files`.
  explicit FakeLauncher(FileSystemObject& files) : files_(files) {}

  // All of them, in order.
  const std::vector<Started>& started() const { return started_; }

  void start(const std::string& program, const std::string& argument) override;

 private:
  FileSystemObject& files_;
  std::vector<Started> started_;
};

}  // namespace plimo
