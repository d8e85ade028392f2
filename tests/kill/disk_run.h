// One command of the program on a real disk, in a process that is traced.
#pragma once

#include <optional>
#include <string>

#include "kill/tracer.h"
#include "platform/linux/linux_files.h"
#include "support/writing_commands.h"

namespace plimo {

// What a file system lacks. The tracer answers the calls, so that any disk can be used.
struct DiskKind {
  const char* name;
  bool unnamedFiles = true;  // O_TMPFILE
  bool hardLinks = true;
};

// The folders of the sample on the disk.
class DiskSample {
 public:
  // In `root`, which exists. Every file there belongs to the sample.
  DiskSample(std::string root, const WritingCommand& command);

  // Makes the files what they are before the command; writes only what differs.
  void restore() const;
  FileContents contents() const;
  const SampleFolders& folders() const { return folders_; }
  const std::string& root() const { return root_; }
  std::string settingsFile() const { return folders_.home + "/plimo.ini"; }

 private:
  std::string root_;
  SampleFolders folders_;
  FileContents sample_;
};

// The drives of the sample, in the process that calls it.
std::vector<DriveRoot> drivesOf(const DiskSample& sample);

struct RunOutcome {
  Ended ended;
  std::string shown;  // to the user; empty if the process did not end by itself
};

// `calling` is asked about each call between the start of the command and its end, `resting` is called at the start
// and after each action.
RunOutcome runCommand(const WritingCommand& command, const DiskSample& sample, const DiskKind& kind,
                      const std::function<Decision(const SystemCall& call)>& calling,
                      const std::function<void()>& resting = {});

// Starts the program again on the same disk, in a process of its own. Nullopt if that crashed.
std::optional<NextStart> startOnDisk(const DiskSample& sample, const DiskKind& kind);

}  // namespace plimo
